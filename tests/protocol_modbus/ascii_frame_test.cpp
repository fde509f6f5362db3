#include "protocol_modbus/ascii_frame.h"

#include <gtest/gtest.h>

#include "numbers/lrc.h"

namespace commtest {
namespace {

TEST(AsciiReadFrame, EachCharacterIsAByteAndTheEndIsALineEnd) {
    EXPECT_EQ(ToUtf8(AsciiReadFrame(u"010300100001", LrcOfPairs)),
              " 3A 30 31 30 33 30 30 31 30 30 30 30 31 45 42 0D 0A");
    EXPECT_EQ(ToUtf8(AsciiReadFrame(u"01031001", LrcOfChars)), " 3A 30 31 30 33 31 30 30 31 37 41 0D 0A");
}

TEST(AsciiReadFrame, CheckWordOfThreeDigitsMakesItLonger) {
    EXPECT_EQ(ToUtf8(AsciiReadFrame(u"FF01", LrcOfPairs)), " 3A 46 46 30 31 31 30 30 0D 0A");
}

TEST(AsciiWriteFrame, EndsInACarriageReturnAlone) {
    EXPECT_EQ(ToUtf8(AsciiWriteFrame(u"0106001003E8")), " 3A 30 31 30 36 30 30 31 30 30 33 45 38 46 45 0D");
}

TEST(MakeCRCWordModBusAscii, LeavesALeadingBlankAndNoLeadingColon) {
    const std::pair<Text, const char*> frames[] = {{u"3A 30 31", " 30 31"},
                                                   {u" 3A 30 31", " 30 31"},
                                                   {u" 30 31", " 30 31"},
                                                   {u"30 31", " 30 31"},
                                                   {u" 30 3A", " 30 3A"},
                                                   {u" 3A", ""},
                                                   {u"", " "}};
    for (const auto& [given, expected] : frames) {
        HexText frame = given;
        MakeCRCWordModBusAscii(frame);
        EXPECT_EQ(ToUtf8(frame), expected) << ToUtf8(given);
    }
}

}  // namespace
}  // namespace commtest
