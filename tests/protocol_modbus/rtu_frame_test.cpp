#include "protocol_modbus/rtu_frame.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

std::string Closed(TextView frame) {
    HexText text(frame);
    AppendRtuCrc(text);
    return ToUtf8(text);
}

TEST(AppendRtuCrc, PutsBlankInFrontAndCheckBytesBehind) {
    EXPECT_EQ(Closed(u"01 03 00 10 00 01"), " 01 03 00 10 00 01 85 CF");
    EXPECT_EQ(Closed(u"01 03 00 10 00 02"), " 01 03 00 10 00 02 C5 CE");
    EXPECT_EQ(Closed(u"01 04 00 10 00 04"), " 01 04 00 10 00 04 F0 0C");
    EXPECT_EQ(Closed(u"01 09 00 00 00 00"), " 01 09 00 00 00 00 DD CB");
    EXPECT_EQ(Closed(u"01 06 00 10 03 E8"), " 01 06 00 10 03 E8 88 B1");
    EXPECT_EQ(Closed(u"01 83 02"), " 01 83 02 C0 F1");
}

TEST(AppendRtuCrc, LeadingBlankIsNotDoubled) { EXPECT_EQ(Closed(u" 01 83 02"), " 01 83 02 C0 F1"); }

TEST(AppendRtuCrc, EmptyTextCountsAsOneByteZero) {
    EXPECT_EQ(Closed(u""), "  BF 40");
    EXPECT_EQ(Closed(u" "), "  BF 40");
}

TEST(AppendRtuCrc, SecondRunAddsTwoZeroBytes) {
    EXPECT_EQ(Closed(u" 01 03 00 10 00 01 85 CF"), " 01 03 00 10 00 01 85 CF 00 00");
    EXPECT_EQ(Closed(u" 01 03 00 10 00 01 85 CF 00 00"), " 01 03 00 10 00 01 85 CF 00 00 00 00");
}

TEST(AppendRtuCrc, CheckByteBelow16KeepsItsZero) {
    EXPECT_EQ(Closed(u"01 04 00 10 00 01"), " 01 04 00 10 00 01 30 0F");
    EXPECT_EQ(Closed(u"01 03 00 10 00 03"), " 01 03 00 10 00 03 04 0E");
}

// Whatever stands at the places of the digits: small letters, a byte without digits, no digits at all.
TEST(AppendRtuCrc, TakesTwoCharactersAfterEveryThirdPosition) {
    EXPECT_EQ(Closed(u" 4e 1d 33 36 b8 56 91 45 2b 36 47 48 4f 36 4a 33"),
              " 4e 1d 33 36 b8 56 91 45 2b 36 47 48 4f 36 4a 33 33 55");
    EXPECT_EQ(Closed(u" 45 36 1234"), " 45 36 1234 F8 45");              // 45 36 12 04
    EXPECT_EQ(Closed(u" 01 06 00 1003E8"), " 01 06 00 1003E8 98 6F");    // 01 06 00 10 3E 00
    EXPECT_EQ(Closed(u" 01 06 00 10 64 "), " 01 06 00 10 64  A2 CF");    // the last blank is a byte 00
    EXPECT_EQ(Closed(u" 01 06 00 10 03E8"), " 01 06 00 10 03E8 89 39");  // 01 06 00 10 03 08
    EXPECT_EQ(Closed(u" xx"), " xx BF 40");
}

TEST(TestRtuCrc, PassesAFrameWithItsCheckBytesOnly) {
    EXPECT_TRUE(TestRtuCrc(u" 01 83 02 C0 F1"));
    EXPECT_TRUE(TestRtuCrc(u" 01 03 02 00 64 B9 AF"));
    EXPECT_TRUE(TestRtuCrc(u" 95 7F 2F"));  // one byte and its check bytes
    EXPECT_FALSE(TestRtuCrc(u" 01 83 02 F1 C0"));
    EXPECT_FALSE(TestRtuCrc(u" 01 83 02 C0 F0"));
    EXPECT_FALSE(TestRtuCrc(u" 01 83 03 C0 F1"));
    EXPECT_FALSE(TestRtuCrc(u" FD 50 50 33 94 4D 26"));
}

TEST(TestRtuCrc, ComparesTexts) {
    EXPECT_FALSE(TestRtuCrc(u"01 83 02 C0 F1"));
    EXPECT_FALSE(TestRtuCrc(u" 01 83 02 c0 f1"));
}

TEST(TestRtuCrc, FewerThanThreeBytesNeverPass) {
    for (TextView frame : {u"", u" 01", u" FF FF", u" BF 40"}) EXPECT_FALSE(TestRtuCrc(HexText(frame)));
}

TEST(SplitAddress, SetsTheFirstByteApart) {
    EXPECT_EQ(ToUtf8(SplitAddress(u"0010")), "00 10");
    EXPECT_EQ(ToUtf8(SplitAddress(u"00100")), "00 100");
    EXPECT_EQ(ToUtf8(SplitAddress(u"0")), "0 ");
}

}  // namespace
}  // namespace commtest
