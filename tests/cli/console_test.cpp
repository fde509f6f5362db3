#include "cli/console.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/console_dialogs.h"

namespace commtest {

namespace {

class ConsoleTest : public ::testing::Test {
  protected:
    std::istringstream input;
    std::ostringstream results;
    std::ostringstream problems;
};

TEST_F(ConsoleTest, ResultsAndProblemsGoTheirOwnWays) {
    Console console({input}, results, problems);
    console.Print(std::string("grid\n"));
    console.Tell(u"wrong\r\n\r\nport");
    EXPECT_EQ(results.str(), "grid\n");
    EXPECT_EQ(problems.str(), "wrong port\n");
}

TEST_F(ConsoleTest, EmptyLineIsNotTold) {
    Console console({input}, results, problems);
    console.Tell(u"");
    EXPECT_EQ(problems.str(), "");
}

TEST_F(ConsoleTest, WithoutATerminalThereIsNoLiveLine) {
    Console console({input}, results, problems);
    console.ShowLive(u"总计通讯");
    EXPECT_EQ(problems.str(), "");
}

TEST_F(ConsoleTest, LiveLineGivesWayToTheNextOne) {
    Console console({input}, results, problems, 80);
    console.ShowLive(u"总计: 1");
    console.ShowLive(u"2");
    EXPECT_EQ(problems.str(), "总计: 1\r       \r2");
}

TEST_F(ConsoleTest, LiveLineGivesWayToResultsAndProblems) {
    Console console({input}, results, problems, 80);
    console.ShowLive(u"a");
    console.Print(std::string("block\n"));
    console.ShowLive(u"b");
    console.Tell(u"lost");
    EXPECT_EQ(problems.str(), "a\r \rb\r \rlost\n");
}

TEST_F(ConsoleTest, LiveLineIsGoneAtTheEnd) {
    {
        Console console({input}, results, problems, 80);
        console.ShowLive(u"a");
    }
    EXPECT_EQ(problems.str(), "a\r \r");
}

TEST_F(ConsoleTest, LiveLineStaysShortOfTheLastColumn) {
    Console console({input}, results, problems, 6);
    console.ShowLive(u"总计通讯");
    EXPECT_EQ(problems.str(), "总计");
}

TEST_F(ConsoleTest, OnlyAYesConfirms) {
    input.str("y\nYes\n是\nn\nyet\n\n");
    Console console({input}, results, problems);
    EXPECT_TRUE(console.Confirms(u"really?"));
    EXPECT_TRUE(console.Confirms(u"really?"));
    EXPECT_TRUE(console.Confirms(u"really?"));
    for (int i = 0; i < 4; ++i) EXPECT_FALSE(console.Confirms(u"")) << i;
    EXPECT_TRUE(problems.str().starts_with("really? [y/N] really? [y/N] "));
}

TEST_F(ConsoleTest, LiveLineCannotSteerTheTerminal) {
    Console console({input}, results, problems, 80);
    console.ShowLive(u"\x1B[2J");
    EXPECT_EQ(problems.str(), "\\1B[2J");
    console.ShowLive(u"");
    EXPECT_EQ(problems.str(), "\\1B[2J\r      \r");
}

TEST_F(ConsoleTest, FlushTellsWhetherTheResultsCouldBeWritten) {
    Console console({input}, results, problems);
    EXPECT_TRUE(console.Flush());
    results.setstate(std::ios::badbit);
    EXPECT_FALSE(console.Flush());
}

TEST_F(ConsoleTest, MessageOfTheSessionStaysAndTheReasonStandsBehindIt) {
    Console console({input}, results, problems);
    ConsoleDialogs dialogs(console);
    dialogs.ShowMessage(u"系统串口被占用,无法打开！", u"设备 /dev/x 不存在。请检查接线和设备名");
    EXPECT_EQ(problems.str(), "系统串口被占用,无法打开！ 设备 /dev/x 不存在。请检查接线和设备名\n");
}

TEST_F(ConsoleTest, ErrorOfTheSessionIsOneLine) {
    Console console({input}, results, problems);
    ConsoleDialogs dialogs(console);
    dialogs.ShowError(9, u"实时错误 '9':\r\n\r\n下标越界");
    EXPECT_EQ(problems.str(), "实时错误 '9': 下标越界\n");
}

TEST_F(ConsoleTest, NobodyAnswersQuestions) {
    Console console({input}, results, problems);
    ConsoleDialogs dialogs(console);
    EXPECT_FALSE(dialogs.AskYesNo(u"确定吗？"));
    EXPECT_EQ(ToUtf8(dialogs.AskText(u"标题", u"请输入", u"1")), "");
}

}  // namespace

}  // namespace commtest
