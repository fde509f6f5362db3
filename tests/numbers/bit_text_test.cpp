#include "numbers/bit_text.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string Padded(Text text, int width, int mode) {
    PadWideText(text, width, mode);
    return ToUtf8(text);
}

TEST(PadWideText, ModesFillOnTheRightOrOnTheLeft) {
    EXPECT_EQ(Padded(u"5", 3, 1), "5  ");
    EXPECT_EQ(Padded(u"5", 3, 2), "  5");
    EXPECT_EQ(Padded(u"5", 3, 3), "005");
    EXPECT_EQ(Padded(u"", 3, 2), "   ");
}

TEST(PadWideText, OtherModesAddNothing) {
    for (int mode : {-1, 0, 4}) EXPECT_EQ(Padded(u"5", 3, mode), "5") << mode;
}

TEST(PadWideText, DoubleByteCharacterCountsAsTwo) {
    EXPECT_EQ(Padded(u"中", 4, 1), "中  ");
    EXPECT_EQ(Padded(u"温1温", 8, 3), "000温1温");
    EXPECT_EQ(Padded(u"温温", 4, 1), "温温");
}

TEST(PadWideText, CharacterOutsideTheCodePageCountsAsOne) { EXPECT_EQ(Padded(u"\u00FF", 3, 3), "00\u00FF"); }

TEST(PadWideText, LongerTextIsNotCut) {
    EXPECT_EQ(Padded(u"12345", 3, 3), "12345");
    EXPECT_EQ(Padded(u"温温", 3, 1), "温温");
    EXPECT_EQ(Padded(u"5", -1, 3), "5");
}

TEST(ByteToBitText, HasEightDigitsMostSignificantFirst) {
    EXPECT_EQ(ToUtf8(ByteToBitText(0)), "00000000");
    EXPECT_EQ(ToUtf8(ByteToBitText(1)), "00000001");
    EXPECT_EQ(ToUtf8(ByteToBitText(2)), "00000010");
    EXPECT_EQ(ToUtf8(ByteToBitText(137)), "10001001");
    EXPECT_EQ(ToUtf8(ByteToBitText(255)), "11111111");
}

TEST(BitTextToByte, WeighsTheDigitsFrom128DownTo1) {
    EXPECT_EQ(BitTextToByte(u"10000000"), 128);
    EXPECT_EQ(BitTextToByte(u"01011010"), 90);
    EXPECT_EQ(BitTextToByte(u"11111111"), 255);
}

TEST(BitTextToByte, ShorterTextIsFilledAndALongerOneKeepsItsLastEight) {
    EXPECT_EQ(BitTextToByte(u""), 0);
    EXPECT_EQ(BitTextToByte(u"1110"), 14);
    EXPECT_EQ(BitTextToByte(u"111110110110"), 182);
}

TEST(BitTextToByte, EachDigitIsReadAsANumber) {
    EXPECT_EQ(BitTextToByte(u"20"), 4);
    EXPECT_EQ(BitTextToByte(u"99999999"), 2295);
    EXPECT_EQ(ErrorOf([] { BitTextToByte(u"1A"); }), 13);
    EXPECT_EQ(ErrorOf([] { BitTextToByte(u"1 "); }), 13);
}

TEST(BitText, GoesThereAndBackForEveryByte) {
    for (int byte = 0; byte <= 255; ++byte) EXPECT_EQ(BitTextToByte(ByteToBitText(byte)), byte);
}

}  // namespace
}  // namespace commtest
