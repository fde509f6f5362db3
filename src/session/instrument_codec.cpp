#include "session/instrument_codec.h"

#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "session/conversation.h"

namespace commtest {

namespace {

constexpr int kUnchanged = -1;

}  // namespace

int WriteFormatOfLength(TextView length) {
    if (length == u"1") return register_format::kOneByte;
    if (length == u"2") return register_format::kSignMagnitudeSwapped;
    if (length == u"4") return register_format::kCustomFloat;
    return kUnchanged;
}

int FormatOfInstrument(const InstrumentInUse& instrument) {
    return ToWhole16(Mid(instrument.MeterCodeText, 3, 2));
}

int ReadFormatOfLength(TextView length) {
    return length == u"8" ? register_format::kAccumulated : WriteFormatOfLength(length);
}

}  // namespace commtest
