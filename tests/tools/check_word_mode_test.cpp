#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/tool_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PressedTool;

constexpr int kCheckWords = 7;

std::string CheckWordOf(int protocolCode, const std::string& input) {
    return PressedTool(kCheckWords, protocolCode, input).Result();
}

TEST(CheckWordMode, BytesAreMissingSoThatTheInputIsSplitBehindTwoCharacters) {
    EXPECT_EQ(CheckWordOf(2, "ABC"), "AB C");
    EXPECT_EQ(CheckWordOf(2, "01 03 00"), "01  03 00");
    EXPECT_EQ(CheckWordOf(2, "仪表系数"), "仪表 系数");
}

TEST(CheckWordMode, ShortInputOfBytesGetsABlankBehindIt) {
    EXPECT_EQ(CheckWordOf(2, "A"), "A ");
    EXPECT_EQ(CheckWordOf(2, "AB"), "AB ");
}

TEST(CheckWordMode, HexTextHasItsTwoCheckBytes) {
    EXPECT_EQ(CheckWordOf(3, " 01 03"), "90 9D");
    EXPECT_EQ(CheckWordOf(3, "08"), "97 9C");
}

TEST(CheckWordMode, HexTextWithIllegalCharactersIsReportedAndEmptiesTheResult) {
    PressedTool bench(kCheckWords, 3, " 01 GH");
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("对不起，数据串中含有非法字符,无法完成校验！"));
    EXPECT_EQ(bench.dialogs.Shown.at(0).kind, testing::ShownBox::Kind::Message);
    EXPECT_EQ(bench.Result(), "");
    EXPECT_EQ(bench.Input(), " 01 GH");
    EXPECT_EQ(bench.Explanation(), "was");
}

TEST(CheckWordMode, HexTextDoesNotChangeTheInput) {
    EXPECT_EQ(PressedTool(kCheckWords, 3, "01 03").Input(), "01 03");
}

TEST(CheckWordMode, NativeFrameIsShownWhole) {
    EXPECT_EQ(CheckWordOf(11, "@01RD"), "@01RD17\r");
    EXPECT_EQ(CheckWordOf(11, "#01RD"), "@01RD17\r");
}

TEST(CheckWordMode, NativeFrameOfLessThanThreeCharactersIsShownAsItIs) {
    EXPECT_EQ(CheckWordOf(11, "@0"), "@0");
    EXPECT_EQ(CheckWordOf(11, "x"), "x");
}

TEST(CheckWordMode, AsciiFrameHasTheCheckWordOfItsPairs) {
    EXPECT_EQ(CheckWordOf(21, ":010300000001"), "FB");
    EXPECT_EQ(CheckWordOf(21, "010300000001"), "FB");
    EXPECT_EQ(CheckWordOf(21, ":0000"), "100");
}

// 129 pairs FF leave a signed word: 32895.
TEST(CheckWordMode, AsciiFrameThatOverflowsIsShownAsItIs) {
    const std::string tooLong(258, 'F');
    PressedTool bench(kCheckWords, 21, tooLong);
    EXPECT_EQ(bench.Result(), tooLong);
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_EQ(CheckWordOf(21, std::string(256, 'F')), "80");
}

TEST(CheckWordMode, OtherProtocolsLeaveTheResult) {
    for (const int code : {0, 1, 12, 13, 22, 23, 31, 32, 33, 34, 35, 41, 42, 51, -1}) {
        EXPECT_EQ(CheckWordOf(code, "@01RD"), "was") << code;
    }
}

TEST(CheckWordMode, LeavesInputAndExplanationWithoutAMessage) {
    for (const int code : {2, 3, 11, 12, 21, 31}) {
        PressedTool bench(kCheckWords, code, "1");
        EXPECT_EQ(bench.Input(), "1") << code;
        EXPECT_EQ(bench.Explanation(), "was") << code;
        EXPECT_THAT(bench.dialogs.Shown, IsEmpty()) << code;
    }
}

// 34 xor 31 xor 42 = 47; the normalised text would be AB.
TEST(CheckWordMode, WorksOnTheTextAsTyped) {
    PressedTool bench(kCheckWords, 11, "\\41B");
    EXPECT_EQ(bench.Normalised(), " 41 42");
    EXPECT_EQ(bench.Result(), "@41B47\r");
}

TEST(CheckWordMode, TakesAnyText) {
    PressedTool bench(kCheckWords, 12, "no number, no code 00000000");
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_EQ(bench.Input(), "no number, no code 00000000");
}

}  // namespace
}  // namespace commtest
