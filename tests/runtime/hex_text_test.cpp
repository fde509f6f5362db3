#include "runtime/hex_text.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string Converted(Text text, int mode) {
    ConvertHexText(text, mode);
    return ToUtf8(text);
}

TEST(FitTextWidth, LongerTextKeepsItsRightmostCharacters) {
    EXPECT_EQ(ToUtf8(FittedToWidth(u"12345", 3)), "345");
    EXPECT_EQ(ToUtf8(FittedToWidth(u"0ED215E983", 4)), "E983");
}

TEST(FitTextWidth, ShorterTextIsFilledWithZerosOnTheLeft) {
    EXPECT_EQ(ToUtf8(FittedToWidth(u"5", 3)), "005");
    EXPECT_EQ(ToUtf8(FittedToWidth(u"", 4)), "0000");
}

TEST(FitTextWidth, TextOfThatWidthStays) { EXPECT_EQ(ToUtf8(FittedToWidth(u"abc", 3)), "abc"); }

TEST(FitTextWidth, WidthOfZeroLeavesNothing) {
    EXPECT_EQ(ToUtf8(FittedToWidth(u"abc", 0)), "");
    EXPECT_EQ(ToUtf8(FittedToWidth(u"abc", -1)), "");
}

TEST(FitTextWidth, RewritesItsArgument) {
    Text text = u"5";
    FitTextWidth(text, 2);
    EXPECT_EQ(ToUtf8(text), "05");
}

TEST(ConvertHexTextToReadable, GivesACharacterAByte) {
    EXPECT_EQ(Converted(u" 40 30 31 52 44", 0), "@01RD");
    EXPECT_EQ(ToUtf8(ReadableOf(u" 40 30 31 52 44")), "@01RD");
}

TEST(ConvertHexTextToReadable, PutsTheLeadingBlankInFront) {
    EXPECT_EQ(Converted(u"40 30 31 0D", 0), "@01\\0D");
}

TEST(ConvertHexTextToReadable, LineEndCountsAsThreeCharacters) {
    EXPECT_EQ(Converted(u" 41 0D", 0), "A\\0D");
    EXPECT_EQ(Converted(u" 41 0A", 0), "A\\0A");
    EXPECT_EQ(Converted(u" 41 0D 0A", 0), "A\\0D\\0A");
}

TEST(ConvertHexTextToReadable, OnlyTheFirstLineEndIsReplaced) {
    EXPECT_EQ(Converted(u" 41 0D 42 0D", 0), "A\\0DB\r");
    EXPECT_EQ(Converted(u" 0A 0A 0D 0D", 0), "\\0A\n\\0D\r");
}

TEST(ConvertHexTextToReadable, TakesSmallLetters) { EXPECT_EQ(Converted(u" 5a 0d", 0), "Z\\0D"); }

TEST(ConvertHexTextToReadable, BytesAbove7FBecomeTheCharacterOfThatCode) {
    EXPECT_EQ(Converted(u" E9 FF 80", 0), "\u00E9\u00FF\u0080");
}

TEST(ConvertHexTextToReadable, EmptyTextStaysEmpty) { EXPECT_EQ(Converted(u"", 0), ""); }

TEST(ConvertHexTextToReadable, UnreadablePairRaisesError13) {
    for (TextView frame : {u" GG", u" 40 G1", u" 40 1G", u" 40 ", u" 40  1"}) {
        EXPECT_EQ(ErrorOf([frame] { Converted(Text(frame), 0); }), 13) << ToUtf8(frame);
    }
}

TEST(ConvertHexTextToReadable, PairOfOneDigitIsReadable) { EXPECT_EQ(Converted(u" 40 7", 0), "@\u0007"); }

TEST(ConvertHexTextFromReadable, WritesEachCodeBehindABlank) {
    EXPECT_EQ(Converted(u"{\"", 1), " 7B 22");
    EXPECT_EQ(Converted(u"\r\n\t", 1), " 0D 0A 09");
    EXPECT_EQ(Converted(u"", 1), "");
}

TEST(ConvertHexTextFromReadable, ModesOneAndTwoAreTheSame) {
    EXPECT_EQ(Converted(u"@01RD", 1), " 40 30 31 52 44");
    EXPECT_EQ(Converted(u"@01RD", 2), " 40 30 31 52 44");
    EXPECT_EQ(ToUtf8(HexTextOfReadable(u"@01RD")), " 40 30 31 52 44");
}

TEST(ConvertHexTextFromReadable, DoubleByteCharacterGivesFourDigitsBehindOneBlank) {
    EXPECT_EQ(Converted(u"tO中", 2), " 74 4F D6D0");
    EXPECT_EQ(Converted(u"S9_温度", 1), " 53 39 5F CEC2 B6C8");
}

TEST(ConvertHexTextFromReadable, CharacterOutsideTheCodePageIsAQuestionMark) {
    EXPECT_EQ(Converted(u"\u00FF", 1), " 3F");
}

TEST(ConvertHexTextFromReadable, EscapesOfALineEndAreNotTurnedBack) {
    EXPECT_EQ(Converted(u"\\0D", 1), " 5C 30 44");
}

TEST(ConvertHexText, OtherModesLeaveTheText) {
    for (int mode : {-1, 3, 4}) EXPECT_EQ(Converted(u"GG \r", mode), "GG \r") << mode;
}

TEST(EnsureLeadingBlank, PutsOneWhereThereIsNone) {
    Text without = u"40";
    Text with = u" 40";
    Text empty;
    for (Text* text : {&without, &with, &empty}) EnsureLeadingBlank(*text);
    EXPECT_EQ(ToUtf8(without), " 40");
    EXPECT_EQ(ToUtf8(with), " 40");
    EXPECT_EQ(ToUtf8(empty), " ");
}

TEST(AppendHexBytes, WritesEachByteBehindTheOther) {
    HexText frame = u" 01";
    AppendHexBytes(frame, std::string_view("\x00\x7F\xFF", 3));
    EXPECT_EQ(ToUtf8(frame), " 01 00 7F FF");
}

TEST(AppendHexByte, WritesABlankAndTwoUpperCaseDigits) {
    HexText frame = u" 40";
    for (int byte : {0, 10, 255}) AppendHexByte(frame, byte);
    EXPECT_EQ(ToUtf8(frame), " 40 00 0A FF");
}

}  // namespace
}  // namespace commtest
