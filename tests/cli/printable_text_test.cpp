#include "cli/printable_text.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

TEST(PrintableText, ReadableCharactersStay) {
    EXPECT_EQ(PrintableText(u"第 1 次 @01RD17\\0D ÿ ㎡"), "第 1 次 @01RD17\\0D ÿ ㎡");
}

TEST(PrintableText, LineEndBecomesALineFeed) { EXPECT_EQ(PrintableText(u"a\r\nb\r\n\r\n"), "a\nb\n\n"); }

TEST(PrintableText, ControlCharactersAreShownByTheirCodes) {
    const struct {
        Text text;
        const char* shown;
    } rows[] = {
        {Text{u'\0'}, "\\00"}, {u"\x1B[2J", "\\1B[2J"},
        {u"\r", "\\0D"},       {u"\n", "\\0A"},
        {u"\r\r\n", "\\0D\n"}, {u"\t", "\\09"},
        {u"\x7F", "\\7F"},     {u"\u0080\u009B", "\\80\\9B"},
        {u"\u202E", "\\202E"}, {u"\u200B\u2028", "\\200B\\2028"},
        {u"\uFEFF", "\\FEFF"},
    };
    for (const auto& row : rows) EXPECT_EQ(PrintableText(row.text), row.shown);
}

TEST(PrintableLine, LineEndsBecomeOneBlank) {
    EXPECT_EQ(PrintableLine(u"实时错误 '13':\r\n\r\n类型不匹配"), "实时错误 '13': 类型不匹配");
    EXPECT_EQ(PrintableLine(u"a\nb\rc\r\n"), "a b c");
}

TEST(PrintableLine, ControlCharactersAreShownByTheirCodes) { EXPECT_EQ(PrintableLine(u"a\x1B"), "a\\1B"); }

TEST(DisplayWidth, ChineseCharacterTakesTwoCells) {
    EXPECT_EQ(DisplayWidth(u""), 0);
    EXPECT_EQ(DisplayWidth(u"RE 读值"), 7);
    EXPECT_EQ(DisplayWidth(u"：ÿ"), 3);
}

TEST(DisplayWidth, EachCharacterTakesTheCellsThatUnicodeGivesIt) {
    const struct {
        Text text;
        int cells;
    } rows[] = {
        {u"A", 1},
        {u"仪", 2},
        {u"：", 2},
        {u"　", 2},       // the blank as wide as a Chinese character
        {u"￥", 2},       // beyond the block of the wide letters
        {u"ｶ", 1},        // half as wide as the other characters of its block
        {u"㎡", 2},       // one character
        {u"m²", 2},       // two
        {u"e\u0301", 1},  // an accent upon the letter
        {u"\u0301", 0},
        {u"℃·“…±×Ω", 7},           // ambiguous: wide in some fonts
        {u"\x1B\u009B\u202E", 3},  // control characters
        {u"\U00020BB7", 2},        // 𠮷, two units
        {u"\U0001D400", 1},        // a bold A, two units
        {u"\U0001F600", 2},
        {Text{0xD842}, 1},  // half of a pair is shown as U+FFFD
        {Text{0xDFB7, u'A'}, 2},
    };
    for (const auto& row : rows) EXPECT_EQ(DisplayWidth(row.text), row.cells) << ToUtf8(row.text);
}

TEST(CutToWidth, CharacterThatDoesNotFitWholeFallsAway) {
    EXPECT_EQ(ToUtf8(CutToWidth(u"a读值", 5)), "a读值");
    EXPECT_EQ(ToUtf8(CutToWidth(u"a读值", 4)), "a读");
    EXPECT_EQ(ToUtf8(CutToWidth(u"a读值", 0)), "");
}

TEST(CutToWidth, CharacterOfTwoUnitsIsNotCutInTwo) {
    const Text text = u"a\U00020BB7b";
    EXPECT_EQ(CutToWidth(text, 4), text);
    EXPECT_EQ(CutToWidth(text, 3), u"a\U00020BB7");
    EXPECT_EQ(CutToWidth(text, 2), u"a");
}

TEST(CutToWidth, AccentStaysWithItsLetter) {
    EXPECT_EQ(CutToWidth(u"ae\u0301b", 2), u"ae\u0301");
    EXPECT_EQ(CutToWidth(u"ae\u0301b", 1), u"a");
}

TEST(ShortenedToWidth, TextThatIsCutEndsInAnEllipsis) {
    EXPECT_EQ(ToUtf8(ShortenedToWidth(u"a读值", 5)), "a读值");
    EXPECT_EQ(ToUtf8(ShortenedToWidth(u"a读值", 4)), "a读…");
    EXPECT_EQ(ToUtf8(ShortenedToWidth(u"a读值", 3)), "a…");
}

}  // namespace

}  // namespace commtest
