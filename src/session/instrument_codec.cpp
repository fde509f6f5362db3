#include "session/instrument_codec.h"

namespace commtest {

namespace {

constexpr int kUnchanged = -1;

}  // namespace

int WriteFormatOfLength(TextView length) {
    if (length == u"1") return 7;
    if (length == u"2") return 0;
    if (length == u"4") return 2;
    return kUnchanged;
}

int ReadFormatOfLength(TextView length) { return length == u"8" ? 8 : WriteFormatOfLength(length); }

}  // namespace commtest
