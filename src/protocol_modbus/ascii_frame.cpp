#include "protocol_modbus/ascii_frame.h"

#include "numbers/lrc.h"

namespace commtest {

namespace {

constexpr TextView kColonByte = u" 3A";

}  // namespace

HexText AsciiReadFrame(const Text& body, Text (*checkWord)(Text)) {
    return HexTextOfReadable(u":" + body + checkWord(body) + Text(kLineEnd));
}

// Q141: no line feed.
HexText AsciiWriteFrame(const Text& body) {
    return HexTextOfReadable(u":" + body + LrcOfPairs(body) + u"\r");
}

// Q151: nothing is appended.
void MakeCRCWordModBusAscii(HexText& frame) {
    EnsureLeadingBlank(frame);
    if (frame.starts_with(kColonByte)) frame.erase(0, kColonByte.size());
}

}  // namespace commtest
