#include "session/toolbar_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;

class ToolbarCommands : public ::testing::Test {
  protected:
    FormBench bench;
    MainForm& form = bench.form;
};

TEST_F(ToolbarCommands, ImportAsksFirst) {
    bench.dialogs.Answers = {u"no", u"yes"};
    RunToolbarCommand(form, 2);
    EXPECT_THAT(bench.companions.Calls, IsEmpty());
    RunToolbarCommand(form, 2);
    EXPECT_THAT(bench.companions.Calls, ElementsAre("ImportParameterList"));
    EXPECT_THAT(bench.dialogs.Texts(),
                ElementsAre("确定要重新导入仪表的参数地址表吗？", "确定要重新导入仪表的参数地址表吗？"));
    EXPECT_EQ(bench.dialogs.Shown[0].kind, testing::ShownBox::Kind::YesNo);
}

TEST_F(ToolbarCommands, SearchFlipsItsPanel) {
    EXPECT_FALSE(form.FindFrame.Visible());
    RunToolbarCommand(form, 3);
    EXPECT_TRUE(form.FindFrame.Visible());
    RunToolbarCommand(form, 3);
    EXPECT_FALSE(form.FindFrame.Visible());
}

TEST_F(ToolbarCommands, ExportAndLeaveGoToTheFloorsAbove) {
    RunToolbarCommand(form, 9);
    RunToolbarCommand(form, 11);
    EXPECT_THAT(bench.companions.Calls, ElementsAre("ExportParameterLists", "Leave"));
}

TEST_F(ToolbarCommands, OtherButtonsDoNothing) {
    for (const int button : {-1, 0, 1, 5, 6, 7, 8, 10, 12}) {
        RunToolbarCommand(form, button);
        EXPECT_FALSE(form.IsRunning()) << button;
        EXPECT_FALSE(form.FindFrame.Visible()) << button;
    }
    EXPECT_THAT(bench.companions.Calls, IsEmpty());
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(ToolbarCommands, DropDownEntriesGoToTheFloorsAbove) {
    const std::pair<Text, std::string> entries[] = {{u"导出当前参数地址表", "ExportCurrentTable"},
                                                    {u"导出全部参数地址表", "ExportAllTables"},
                                                    {u"系统小工具", "OpenToolWindow"},
                                                    {u"参数地址确认", "ReloadParameters"}};
    for (const auto& [caption, call] : entries) {
        bench.companions.Calls.clear();
        ToolbarMenuCommand(form, caption);
        EXPECT_THAT(bench.companions.Calls, ElementsAre(call));
    }
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(ToolbarCommands, OtherCaptionsOfADropDownDoNothing) {
    for (const Text& caption : {Text(u"指令选择"), Text(u""), Text(u"系统"), Text(u"系统小工具 ")}) {
        ToolbarMenuCommand(form, caption);
        EXPECT_THAT(bench.companions.Calls, IsEmpty()) << ToUtf8(caption);
    }
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_EQ(form.CommandCode, 31);
}

TEST_F(ToolbarCommands, StartEmptiesTheSamplesAndMakesTheCycleReady) {
    form.StaticSample = u" 40";
    form.DynamicSample = u" 41";
    RunToolbarCommand(form, 4);
    EXPECT_EQ(ToUtf8(form.StaticSample + form.DynamicSample), "");
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_TRUE(form.Timer1[1].Enabled());
}

TEST_F(ToolbarCommands, StartTakesTheErrorFileAndLocksItsButtons) {
    RunToolbarCommand(form, 4);
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_FALSE(form.ClearFileCommand[0].Enabled());
    EXPECT_FALSE(form.ClearFileCommand[1].Enabled());
}

TEST_F(ToolbarCommands, StartLeavesThePortClosed) {
    RunToolbarCommand(form, 4);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_THAT(bench.line.Frames(), IsEmpty());
}

TEST_F(ToolbarCommands, StopIdlesTheCycleAndGivesTheErrorFileBack) {
    RunToolbarCommand(form, 4);
    form.StaticSample = u" 40";
    form.CycleStep = 3;
    RunToolbarCommand(form, 4);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 0);
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_TRUE(form.ClearFileCommand[0].Enabled());
    EXPECT_TRUE(form.ClearFileCommand[1].Enabled());
    EXPECT_EQ(ToUtf8(form.StaticSample), " 40");
}

TEST_F(ToolbarCommands, StopLeavesPortAndTickToTheNextTick) {
    RunToolbarCommand(form, 4);
    bench.line.SetPortOpen(true);
    RunToolbarCommand(form, 4);
    EXPECT_TRUE(bench.line.PortOpen());
    EXPECT_TRUE(form.Timer1[1].Enabled());
}

TEST_F(ToolbarCommands, StartOfAnEnabledTickDoesNotBeginItsCountAnew) {
    form.Timer1[1].SetEnabled(true);
    bench.line.RunUntil(200);
    RunToolbarCommand(form, 4);
    form.SendText = u" 40";
    bench.line.RunUntil(300);
    EXPECT_EQ(bench.line.Frames().size(), 1u);
}

}  // namespace
}  // namespace commtest
