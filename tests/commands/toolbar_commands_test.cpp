#include "commands/toolbar_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/instrument_catalogue.h"
#include "session/events.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ToolbarCommands : public ::testing::Test {
  protected:
    FormBench bench;
    MainForm& form = bench.form;
};

TEST_F(ToolbarCommands, ImportAsksFirst) {
    bench.files.TextFiles[u"TQ.ini"] = u"DEVICE METER\r\nTYPE 11000101\r\nEND\r\nDEVICE   END\r\n";
    const InstrumentCatalogue catalogue(*bench.store);
    bench.dialogs.Answers = {u"no", u"yes"};
    RunToolbarCommand(form, 2);
    EXPECT_THAT(catalogue.AllInstruments().rows, IsEmpty());
    RunToolbarCommand(form, 2);
    EXPECT_THAT(catalogue.AllInstruments().rows, SizeIs(1));
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("确定要重新导入仪表的参数地址表吗？",
                                                   "确定要重新导入仪表的参数地址表吗？", "数据库重置完毕！"));
    EXPECT_EQ(bench.dialogs.Shown[0].kind, testing::ShownBox::Kind::YesNo);
    EXPECT_EQ(ToUtf8(bench.files.TextFiles[u"OutTQ.ini"]), "END\r\nDEVICE   END\r\n");
}

TEST_F(ToolbarCommands, SearchFlipsItsPanel) {
    EXPECT_FALSE(form.FindFrame.Visible());
    RunToolbarCommand(form, 3);
    EXPECT_TRUE(form.FindFrame.Visible());
    RunToolbarCommand(form, 3);
    EXPECT_FALSE(form.FindFrame.Visible());
}

TEST_F(ToolbarCommands, SpecialAddressesMakeTheChannelTable) {
    bench.files.TextFiles[u"TQP.Dev"] = u"CH% 2100 R\r\nEND\r\n";
    RunToolbarCommand(form, 9);
    EXPECT_TRUE(ToUtf8(bench.files.TextFiles[u"OutTQ.Dev"]).starts_with("CH01 2100 R\r\nCH02 2101 R\r\n"));
}

TEST_F(ToolbarCommands, LeavingStoresTheSettingsAndEndsTheProgram) {
    EXPECT_THROW(RunToolbarCommand(form, 11), ProgramEnds);
    EXPECT_TRUE(bench.settings.Values.contains(u"SoftSeting"));
}

TEST_F(ToolbarCommands, OtherButtonsDoNothing) {
    for (const int button : {-1, 0, 1, 5, 6, 7, 8, 10, 12}) {
        RunToolbarCommand(form, button);
        EXPECT_FALSE(form.IsRunning()) << button;
        EXPECT_FALSE(form.FindFrame.Visible()) << button;
    }
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(ToolbarCommands, DropDownEntriesHaveTheirCaptions) {
    const std::pair<ToolbarEntry, std::string> entries[] = {
        {ToolbarEntry::ToolWindow, "系统小工具"},
        {ToolbarEntry::OperationMenu, "指令选择"},
        {ToolbarEntry::ReloadParameters, "参数地址确认"},
        {ToolbarEntry::ExportCurrentTable, "导出当前参数地址表"},
        {ToolbarEntry::ExportAllTables, "导出全部参数地址表"}};
    for (const auto& [entry, caption] : entries) EXPECT_EQ(ToUtf8(CaptionOf(entry)), caption);
}

TEST_F(ToolbarCommands, ConfirmingTheAddressesLoadsTheInstrumentAnew) {
    InstrumentCatalogue catalogue(*bench.store);
    InstrumentRecord instrument;
    instrument.id = 1;
    instrument.name = u"表一";
    instrument.code = u"11000101";
    catalogue.AddInstrument(instrument);
    ParameterRecord parameter;
    parameter.instrumentId = 1;
    parameter.name = u"值";
    parameter.address = u"0010";
    parameter.length = u"2";
    parameter.attribute = u"RW";
    catalogue.AddParameter(parameter);
    form.InstrumentList().Set(u"表一");
    form.StaticSample = u" 40";
    form.CurrentRow = 7;
    form.ParameterGrid().SetCell(1, 9, u"25.0");
    form.ParameterGrid().SetCell(2, 1, u"旧的");
    ToolbarMenuCommand(form, ToolbarEntry::ReloadParameters);
    const Grid& grid = form.ParameterGrid();
    EXPECT_EQ(ToUtf8(grid.Cell(1, 1)), "值");
    EXPECT_EQ(ToUtf8(grid.Cell(1, 2)), "0010");
    EXPECT_EQ(ToUtf8(grid.Cell(1, 3)), "2");
    EXPECT_EQ(ToUtf8(grid.Cell(1, 4)), "RW");
    EXPECT_EQ(ToUtf8(grid.Cell(1, 9)), "");
    EXPECT_EQ(ToUtf8(grid.Cell(2, 1)), "");
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "11000101");
    EXPECT_EQ(ToUtf8(form.StaticSample), "");
    EXPECT_EQ(form.CurrentRow, 7);
    EXPECT_THAT(bench.files.TextFiles, IsEmpty());
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(ToolbarCommands, EntryOfTheToolWindowAsksForIt) {
    ToolbarMenuCommand(form, ToolbarEntry::ToolWindow);
    int wanted = 0;
    form.ToolWindowWanted = [&] { ++wanted; };
    ToolbarMenuCommand(form, ToolbarEntry::ToolWindow);
    EXPECT_EQ(wanted, 1);
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
}

TEST_F(ToolbarCommands, OperationsAndExportsAreLeftToTheView) {
    for (const ToolbarEntry entry :
         {ToolbarEntry::OperationMenu, ToolbarEntry::ExportCurrentTable, ToolbarEntry::ExportAllTables}) {
        ToolbarMenuCommand(form, entry);
        EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
        EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
        EXPECT_EQ(form.CommandCode, 31);
    }
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
