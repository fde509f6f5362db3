#include "runtime/code_page.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

TEST(CharacterCode, SingleBytesStandForThemselves) {
    EXPECT_EQ(CharacterCode(u'A'), 0x41);
    EXPECT_EQ(CharacterCode(u'\0'), 0x00);
    EXPECT_EQ(CharacterCode(u'\x1B'), 0x1B);
    EXPECT_EQ(CharacterCode(u'\x7F'), 0x7F);
}

TEST(CharacterCode, DoubleBytesHaveTheFirstByteHigh) {
    EXPECT_EQ(CharacterCode(u'中'), 0xD6D0);
    EXPECT_EQ(CharacterCode(u'温'), 0xCEC2);
    EXPECT_EQ(CharacterCode(u'度'), 0xB6C8);
}

TEST(CharacterCode, CharacterOutsideTheCodePageHasTheCodeOfAQuestionMark) {
    EXPECT_EQ(CharacterCode(u'\u00FF'), 0x3F);
    EXPECT_EQ(CharacterCode(u'\u0080'), 0x3F);
    EXPECT_EQ(CharacterCode(u'\uFFFD'), 0x3F);
}

TEST(ToCodePage, WritesBytesOfCodePage936) {
    EXPECT_EQ(ToCodePage(u"x中y"), "x\xD6\xD0y");
    EXPECT_EQ(ToCodePage(u"\r\n"), "\r\n");
    EXPECT_EQ(ToCodePage(u""), "");
}

TEST(ToCodePage, WritesAQuestionMarkForWhatItCannotHold) {
    EXPECT_EQ(ToCodePage(u"a\u00FFb"), "a?b");
    EXPECT_EQ(ToCodePage(u"a\u0080b"), "a?b");
}

TEST(ToCodePage, ControlCharactersStand) {
    EXPECT_EQ(ToCodePage(TextView(u"a\0\x1B", 3)), std::string("a\0\x1B", 3));
}

TEST(ToCodePage, CharacterOutsideTheBasicPlaneIsOneQuestionMark) {
    EXPECT_EQ(ToCodePage(u"a\U0001F600b"), "a?b");
}

TEST(ToCodePage, HalfAPairIsOneQuestionMarkAndTakesNothingAlong) {
    EXPECT_EQ(ToCodePage(Text(1, char16_t{0xD83D}) + u"中"), "?\xD6\xD0");
    EXPECT_EQ(ToCodePage(Text(1, char16_t{0xDE00}) + u"a"), "?a");
    EXPECT_EQ(ToCodePage(Text(1, char16_t{0xD83D})), "?");
}

TEST(FromCodePage, ReadsBytesThatWouldAlsoBeUtf8) {
    EXPECT_EQ(ToUtf8(FromCodePage("\xC4\xA3 A")), "模 A");
    EXPECT_EQ(ToUtf8(FromCodePage("a\xD6")), "a\uFFFD");
}

TEST(FromFileBytes, ReadsCodePage936) {
    EXPECT_EQ(ToUtf8(FromFileBytes("A\xD6\xD0\r\n\xCE\xC2\xB6\xC8")), "A中\r\n温度");
    EXPECT_EQ(ToUtf8(FromFileBytes("\x80")), "€");
}

TEST(FromFileBytes, ReadsUtf8WithAndWithoutItsMark) {
    EXPECT_EQ(ToUtf8(FromFileBytes("温度 1")), "温度 1");
    EXPECT_EQ(ToUtf8(FromFileBytes("\xEF\xBB\xBF温度 1")), "温度 1");
    EXPECT_EQ(ToUtf8(FromFileBytes("plain")), "plain");
    EXPECT_EQ(ToUtf8(FromFileBytes("")), "");
}

TEST(FromFileBytes, ByteThatIsNeitherBecomesTheReplacementCharacter) {
    EXPECT_EQ(ToUtf8(FromFileBytes("a\xFF")), "a\uFFFD");
    EXPECT_EQ(ToUtf8(FromFileBytes("a\xD6")), "a\uFFFD");
    EXPECT_EQ(ToUtf8(FromFileBytes("\xD6 b")), "\uFFFD b");
}

TEST(FromFileBytes, ReadsBackWhatToCodePageWrote) {
    const Text text = u"第 1 次, 向 仪表甲 发送: @01RD17\\0D";
    EXPECT_EQ(ToUtf8(FromFileBytes(ToCodePage(text))), ToUtf8(text));
}

}  // namespace
}  // namespace commtest
