#include "replay/replay_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/instrument_catalogue.h"
#include "commands/list_clicks.h"
#include "commands/operation_menus.h"
#include "support/error_of.h"
#include "support/native_instrument.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::Happen;
using ::testing::IsEmpty;
using testing::NativeBench;
using ::testing::SizeIs;
namespace frames = testing::frames;

const std::string kAskOf2 = "40 30 32 52 44 31 34 0D";
const std::string kAskOf3 = "40 30 33 52 44 31 35 0D";

class Replay : public ::testing::TestWithParam<testing::StoreUnderTest>, public NativeBench {
  protected:
    Replay() : NativeBench(kChineseFace, testing::MakeEmptyCatalogue(GetParam())) { Form().CommandCode = 31; }

    void Record(const std::string& request, const std::string& reply, const Text& row,
                const Text& note = u"N", const Text& name = u"仪表甲") {
        RecordedExchange exchange;
        exchange.instrument = name;
        exchange.protocol = u"TQ仪表协议";
        exchange.note = note;
        exchange.code = u"1101";
        exchange.day = u"2024-05-06";
        exchange.row = row;
        exchange.request = FromUtf8(" " + request);
        exchange.reply = FromUtf8(" " + reply);
        InstrumentCatalogue(*store).AddRecordedExchange(exchange);
    }
    void RecordThree() {
        Record(frames::kReadDynamic, frames::kDynamicReply, u"6");
        Record(kAskOf2, "40 30 32 52 44 43 38 30 30 36 34 30 30 36 44 0D", u"7");
        Record(kAskOf3, "40 30 33 52 44 43 38 30 30 36 34 30 30 36 43 0D", u"8");
    }
    void TickReplay(bool on = true) {
        Happen(*this, [on](MainForm& form) { form.ConMyCommDriver.Set(on); });
    }
    void Select(const Text& name = u"仪表甲", const Text& note = u"N") {
        Happen(*this, [&](MainForm& form) { SelectRecording(form, u"TQ仪表协议", name, note); });
    }
    // The list of the tab; row 1 is the first recording.
    void ShowList() {
        Happen(*this, [](MainForm& form) { form.SSTab2.Choose(3); });
    }
    std::vector<std::string> List() {
        std::vector<std::string> rows;
        const Grid& grid = Form().MSHFlexGrid1[2];
        for (int row = 1; row < grid.Rows(); ++row) {
            rows.push_back(ToUtf8(grid.Cell(row, 2) + u"/" + grid.Cell(row, 3)));
        }
        return rows;
    }
    void ChooseInMenu(int index, int row) {
        Happen(*this, [&](MainForm& form) { ChooseGridMenuEntry(form, 2, index, row); });
    }
};

// --- The switch ---

TEST_P(Replay, TickAddsToTheOperationStopsTheSessionAndShowsTheRecordings) {
    Press(4);
    TickReplay();
    EXPECT_EQ(Form().CommandCode, 10031);
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_FALSE(Form().PollTimer().Enabled());
    EXPECT_EQ(Form().SSTab2.Chosen(), 3);
    EXPECT_EQ(Form().LastStop().cause, StopCause::Replay);
    EXPECT_THAT(dialogs.Texts(),
                ElementsAre("请在 演示数据 表格里，双击选定的仪表名称，然后点击 开始通讯 按钮！"));
}

TEST_P(Replay, EveryClickSetsTheIntervalTo1000WhichStays) {
    Form().ConDelayTime.Set(u"97");
    TickReplay();
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1000");
    Form().ConDelayTime.Set(u"50");
    TickReplay(false);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1000");
}

TEST_P(Replay, ClearingTakesItOffTheOperationAndLoadsTheInstrumentsAnew) {
    TickReplay();
    Form().InstrumentList().Clear();
    TickReplay(false);
    EXPECT_EQ(Form().CommandCode, 31);
    EXPECT_THAT(Form().InstrumentList().Items(), SizeIs(1));
    EXPECT_EQ(Form().Focus.Wanted(), FocusWish::Target::ParameterGrid) << "the address has it for a moment";
}

TEST_P(Replay, EntryOfTheMenuEndsItInEffectAndLeavesTheTick) {
    TickReplay();
    Happen(*this, [](MainForm& form) { ChooseMenuEntry(form, 1, 1); });
    EXPECT_EQ(Form().CommandCode, 10);
    EXPECT_TRUE(Form().ConMyCommDriver.Value());
}

// --- The script ---

TEST_P(Replay, BeginsWithTheSecondExchangeAndWrapsBehindTheLast) {
    RecordThree();
    TickReplay();
    Select();
    EXPECT_EQ(Form().DemoIndex, 1);
    std::vector<std::string> addresses;
    std::vector<int> rows;
    Press(4);
    for (int i = 0; i < 5; ++i) {
        const std::int32_t sent = Form().SendCount;
        line.RunWhile([&] { return Form().SendCount == sent; }, 20000);
        addresses.push_back(ToUtf8(Form().ConMeterAddr.Value()));
        rows.push_back(Form().DemoRows.at(static_cast<std::size_t>(Form().DemoIndex) - 1));
    }
    EXPECT_THAT(addresses, ElementsAre("2", "3", "1", "2", "3"));
    EXPECT_THAT(rows, ElementsAre(7, 8, 6, 7, 8));
    EXPECT_THAT(line.Frames(), IsEmpty()) << "the port is never touched";
    EXPECT_FALSE(Form().MSComm1.PortOpen());
}

TEST_P(Replay, RepliesAreParsedAndCountedAsOnALine) {
    RecordThree();
    TickReplay();
    Select();
    Press(4);
    line.RunUntil(5000);
    EXPECT_EQ(Cell(6, 8), "200");
    EXPECT_EQ(Cell(7, 8), "100");
    EXPECT_EQ(Form().IncompleteCount + Form().NoReplyCount + Form().CheckErrorCount, 0);
    EXPECT_GT(Form().SendCount, 3);
}

TEST_P(Replay, WithoutAScriptTheStartIsError9) {
    TickReplay();
    Press(4);
    line.RunUntil(1000);
    EXPECT_EQ(dialogs.Shown.back().number, 9);
}

TEST_P(Replay, ScriptIsLoadedInReplayOnly) {
    RecordThree();
    Select();
    EXPECT_THAT(Form().DemoFrames, IsEmpty());
    EXPECT_EQ(Form().DemoIndex, 1);
}

TEST_P(Replay, ScriptHasTheExchangesOfItsNoteInOrderDeletedOnesToo) {
    RecordThree();
    Record(frames::kReadDynamic, "41", u"9", u"OTHER");
    InstrumentCatalogue(*store).DeleteRecording(u"仪表甲", u"N");
    TickReplay();
    Select();
    EXPECT_THAT(Form().DemoRows, ElementsAre(6, 7, 8));
}

TEST_P(Replay, InstrumentThatIsNotInTheCatalogueIsToldAndNothingIsLoaded) {
    Record(frames::kReadDynamic, frames::kDynamicReply, u"6", u"N", u"别的");
    TickReplay();
    Select(u"别的");
    EXPECT_EQ(ToUtf8(dialogs.Shown.back().text), "仪表名称已经被改变,请右击鼠标,更改 仪表名称 ！");
    EXPECT_THAT(Form().DemoFrames, IsEmpty());
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), "仪表甲");
}

TEST_P(Replay, DoubleClickOnTheListTakesProtocolInstrumentAndNote) {
    RecordThree();
    TickReplay();
    Form().MSHFlexGrid1[2].Select(1, 1);
    Happen(*this, [](MainForm& form) { MSHFlexGrid1_DblClick(form, 2); });
    EXPECT_THAT(Form().DemoFrames, SizeIs(3));
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), "仪表甲");
}

TEST_P(Replay, FrameWithoutAScriptIsError9) {
    EXPECT_EQ(ErrorOf([&] { TakeReplayFrame(Form()); }), 9);
}

// --- The menu of the list ---

TEST_P(Replay, NewNameIsForEveryNoteOfTheInstrument) {
    Record(frames::kReadDynamic, "41", u"6", u"甲");
    Record(frames::kReadDynamic, "42", u"6", u"乙");
    ShowList();
    dialogs.Answers = {u"new name"};
    ChooseInMenu(1, 1);
    EXPECT_THAT(List(), ElementsAre("NEW NAME/乙", "NEW NAME/甲"));
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].title), "仪表新名称");
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].text), "请输入新的仪表名称");
}

TEST_P(Replay, NewNoteIsForEveryInstrumentThatHasTheFormerOne) {
    Record(frames::kReadDynamic, "41", u"6", u"甲");
    Record(frames::kReadDynamic, "42", u"6", u"甲", u"仪表乙");
    ShowList();
    dialogs.Answers = {u"x"};
    ChooseInMenu(2, 1);
    EXPECT_THAT(List(), ::testing::UnorderedElementsAre("仪表甲/X", "仪表乙/X"));
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].title), "仪表新说明");
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].text), "请输入新的说明");
}

TEST_P(Replay, EmptyAnswerChangesNothing) {
    Record(frames::kReadDynamic, "41", u"6", u"甲");
    ShowList();
    dialogs.Answers = {u"", u""};
    ChooseInMenu(1, 1);
    ChooseInMenu(2, 1);
    EXPECT_THAT(List(), ElementsAre("仪表甲/甲"));
}

TEST_P(Replay, DeletingAsksAndMarksTheRows) {
    Record(frames::kReadDynamic, "41", u"6", u"甲");
    Record(frames::kReadDynamic, "42", u"6", u"乙");
    ShowList();
    ASSERT_THAT(List(), ElementsAre("仪表甲/乙", "仪表甲/甲"));
    dialogs.Answers = {u"no", u"yes"};
    ChooseInMenu(4, 1);
    EXPECT_THAT(List(), SizeIs(2));
    ChooseInMenu(4, 1);
    EXPECT_THAT(List(), ElementsAre("仪表甲/甲"));
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].text), "你确定要删除 仪表名称是 <仪表甲> ,说明是 <乙> 的演示数据吗？");
    EXPECT_EQ(store->Query(u"SELECT * FROM 通讯_仿真").rows.size(), 2U) << "nothing is really deleted";
    EXPECT_THAT(InstrumentCatalogue(*store).RecordedInstruments(u"TQ仪表协议").rows, SizeIs(1));
}

TEST_P(Replay, ListIsReadAnew) {
    ShowList();
    Record(frames::kReadDynamic, "41", u"6", u"甲");
    ChooseInMenu(6, 1);
    EXPECT_THAT(List(), ElementsAre("仪表甲/甲"));
}

INSTANTIATE_TEST_SUITE_P(Each, Replay, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
