#include "runtime/text.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

TEST(PositionWords, CountFromOne) {
    EXPECT_EQ(ToUtf8(Mid(u"@01RD", 2, 2)), "01");
    EXPECT_EQ(ToUtf8(Mid(u"@01RD", 4)), "RD");
    EXPECT_EQ(ToUtf8(Left(u"@01RD", 3)), "@01");
    EXPECT_EQ(ToUtf8(Right(u"@01RD", 2)), "RD");
}

TEST(PositionWords, ClampBeyondTheEnd) {
    EXPECT_EQ(ToUtf8(Mid(u"abc", 3, 9)), "c");
    EXPECT_EQ(ToUtf8(Mid(u"abc", 4)), "");
    EXPECT_EQ(ToUtf8(Mid(u"abc", 4, 1)), "");
    EXPECT_EQ(ToUtf8(Mid(u"abc", 99, 5)), "");
    EXPECT_EQ(ToUtf8(Left(u"abc", 9)), "abc");
    EXPECT_EQ(ToUtf8(Right(u"abc", 9)), "abc");
    EXPECT_EQ(ToUtf8(Mid(u"", 1)), "");
    EXPECT_EQ(ToUtf8(Right(u"", 1)), "");
}

TEST(PositionWords, TakeNothingAtALengthOfZero) {
    EXPECT_EQ(ToUtf8(Mid(u"abc", 2, 0)), "");
    EXPECT_EQ(ToUtf8(Left(u"abc", 0)), "");
    EXPECT_EQ(ToUtf8(Right(u"abc", 0)), "");
}

TEST(PositionWords, StartBelowOneRaisesError5) {
    EXPECT_EQ(ErrorOf([] { Mid(u"abc", 0); }), 5);
    EXPECT_EQ(ErrorOf([] { Mid(u"abc", 0, 1); }), 5);
    EXPECT_EQ(ErrorOf([] { Mid(u"abc", -1, 1); }), 5);
    EXPECT_EQ(ErrorOf([] { Mid(u"", 0, 0); }), 5);
}

TEST(PositionWords, NegativeLengthRaisesError5) {
    EXPECT_EQ(ErrorOf([] { Mid(u"abc", 1, -1); }), 5);
    EXPECT_EQ(ErrorOf([] { Left(u"abc", -1); }), 5);
    EXPECT_EQ(ErrorOf([] { Right(u"abc", -1); }), 5);
}

TEST(PositionWords, CountAChineseCharacterOnce) {
    EXPECT_EQ(Len(u"参数1"), 3);
    EXPECT_EQ(ToUtf8(Mid(u"参数1", 2, 1)), "数");
    EXPECT_EQ(ToUtf8(Right(u"参数1", 2)), "数1");
}

TEST(PositionWords, CountACharacterOutsideTheBasicPlaneTwice) { EXPECT_EQ(Len(u"\U0001F600"), 2); }

TEST(InStr, GivesTheFirstPositionFromOne) {
    EXPECT_EQ(InStr(u"a,b,c", u","), 2);
    EXPECT_EQ(InStr(u"RW", u"RW"), 1);
    EXPECT_EQ(InStr(u"RW", u"D"), 0);
    EXPECT_EQ(InStr(u"", u"D"), 0);
}

TEST(InStr, FindsTheEmptyTextInEveryText) {
    EXPECT_EQ(InStr(u"RW", u""), 1);
    EXPECT_TRUE(Contains(u"RW", u""));
    EXPECT_TRUE(Contains(u"", u""));
    EXPECT_FALSE(Contains(u"", u"R"));
}

TEST(InStr, TellsUpperAndLowerCaseApart) { EXPECT_FALSE(Contains(u"rw", u"R")); }

TEST(Trim, TakesBlanksOffBothEndsOnly) {
    EXPECT_EQ(ToUtf8(Trim(u"  a b  ")), "a b");
    EXPECT_EQ(ToUtf8(Trim(u"   ")), "");
    EXPECT_EQ(ToUtf8(Trim(u"")), "");
}

TEST(Trim, KeepsOtherWhiteSpace) { EXPECT_EQ(ToUtf8(Trim(u" \t5\r\n ")), "\t5\r\n"); }

TEST(UCase, RaisesLettersAToZOnly) { EXPECT_EQ(ToUtf8(UCase(u"az0é中Z")), "AZ0é中Z"); }

TEST(Separators, DivideAtTheFirstOne) {
    EXPECT_EQ(ToUtf8(Before(u"9600,N,8", u',')), "9600");
    EXPECT_EQ(ToUtf8(Behind(u"9600,N,8", u',')), "N,8");
}

TEST(Separators, MissingOneLeavesEverythingInFront) {
    EXPECT_EQ(ToUtf8(Before(u"9600", u',')), "9600");
    EXPECT_EQ(ToUtf8(Behind(u"9600", u',')), "");
}

TEST(Utf8, GoesThereAndBack) {
    const std::string text = "a\x7F é 中 \xF0\x9F\x98\x80";
    EXPECT_EQ(ToUtf8(FromUtf8(text)), text);
    EXPECT_EQ(FromUtf8("中"), u"中");
    EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), u"\U0001F600");
}

TEST(Utf8, GoesBehindWhatIsThere) {
    std::string line = "第";
    AppendUtf8(line, u" 1 次, 01 03 02 00 07 F9 86 收到: 01 03 02 00 07 F9 86");
    EXPECT_EQ(line, "第 1 次, 01 03 02 00 07 F9 86 收到: 01 03 02 00 07 F9 86");
    AppendUtf8(line, u"");
    EXPECT_EQ(line.size(), 60U);
}

TEST(Utf8, KeepsAZeroCharacter) { EXPECT_EQ(FromUtf8(std::string_view("a\0b", 3)), Text(u"a\0b", 3)); }

TEST(Utf8, IllFormedBytesBecomeTheReplacementCharacter) {
    struct Row {
        std::string bytes;
        Text text;
    };
    const Row rows[] = {
        {"x\xFFy", u"x\uFFFDy"},          // no lead byte
        {"\x80", u"\uFFFD"},              // a trail byte alone
        {"\xE4\xB8", u"\uFFFD\uFFFD"},    // cut short at the end
        {"\xE4xy", u"\uFFFDxy"},          // no trail byte behind the lead
        {"\xC0\x80", u"\uFFFD\uFFFD"},    // an overlong zero
        {"\xE0\x80\x80", u"\uFFFD"},      // an overlong zero of three bytes
        {"\xED\xA0\x80", u"\uFFFD"},      // half a pair
        {"\xF4\x90\x80\x80", u"\uFFFD"},  // above U+10FFFF
    };
    for (const Row& row : rows) EXPECT_EQ(FromUtf8(row.bytes), row.text) << row.bytes;
}

TEST(Utf8, HalfAPairBecomesTheReplacementCharacter) {
    EXPECT_EQ(ToUtf8(Text(1, char16_t{0xD83D}) + u"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(ToUtf8(Text(1, char16_t{0xDE00})), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace commtest
