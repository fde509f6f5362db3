#include "session/grid_editing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/events.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;
using testing::NativeBench;
using ::testing::SizeIs;
namespace frames = testing::frames;

class CellEditing : public ::testing::Test {
  protected:
    void PressKey(int key) {
        RunEvent(form, [&] { InputText_KeyDown(form, key); });
    }

    NativeBench bench;
    MainForm& form = bench.Form();
    Grid& grid = form.ParameterGrid();
};

// --- A click on the parameter grid ---

struct Pick {
    std::int32_t commandCode;
    int row;  // CurrentRow behind a click on row 5
};

TEST_F(CellEditing, ClickInTheSingleReadColumnPicksTheRowOfSingleReads) {
    for (const Pick& pick : {Pick{40, 5}, Pick{50, 5}, Pick{31, 2}, Pick{60, 2}, Pick{140, 2}}) {
        form.CommandCode = pick.commandCode;
        form.CurrentRow = 2;
        bench.Click(5, 6);
        EXPECT_EQ(form.CurrentRow, pick.row) << pick.commandCode;
        EXPECT_TRUE(grid.Redraw);
    }
}

TEST_F(CellEditing, ClickInTheSingleReadColumnLeavesTheEditorAsItIs) {
    bench.Click(1, 10);
    bench.Click(1, 6);
    EXPECT_TRUE(form.InputText.Visible());
}

TEST_F(CellEditing, PickedRowIsReadNext) {
    form.CommandCode = 40;
    bench.Click(1, 6);
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kReadFirstRow));
}

TEST_F(CellEditing, ClickInAnotherColumnHidesTheEditor) {
    for (const int column : {0, 1, 5, 7, 8, 9}) {
        bench.Click(1, 10);
        ASSERT_TRUE(form.InputText.Visible());
        bench.Click(1, column);
        EXPECT_FALSE(form.InputText.Visible()) << column;
        EXPECT_TRUE(grid.Redraw);
    }
}

TEST_F(CellEditing, ClickDoesNotMoveTheRowOfThePolling) {
    form.CurrentRow = 2;
    bench.Click(1, 10);
    bench.Click(5, 9);
    EXPECT_EQ(form.CurrentRow, 2);
    EXPECT_EQ(grid.Row, 5);
}

TEST_F(CellEditing, ReadOnlyParameterIsRefusedAndTheRedrawStaysOff) {
    bench.Click(1, 10);
    bench.Click(5, 10);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("注意:参数没有W属性,数据无法修改！"));
    EXPECT_FALSE(form.InputText.Visible());
    EXPECT_FALSE(grid.Redraw);
}

TEST_F(CellEditing, RefusedClickLeavesTheSessionRunning) {
    bench.Start();
    bench.line.RunUntil(300);
    bench.Click(6, 10);
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 2);
}

TEST_F(CellEditing, LetterWAnywhereInTheAttributeOpensTheEditor) {
    for (const Text& attribute : {Text(u"W"), Text(u"RW"), Text(u"RDWS"), Text(u"R"), Text(u"w"), Text()}) {
        form.InputText.SetVisible(false);
        grid.SetCell(2, 4, attribute);
        bench.Click(2, 10);
        EXPECT_EQ(form.InputText.Visible(), attribute.find(u'W') != Text::npos) << ToUtf8(attribute);
    }
}

TEST_F(CellEditing, EditorTakesTheTextOfTheCellAndTheFocus) {
    grid.SetCell(1, 10, u"12.5");
    bench.Click(1, 10);
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_EQ(ToUtf8(form.InputText.Value()), "12.5");
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::CellEditor);
    bench.Click(2, 10);
    EXPECT_EQ(ToUtf8(form.InputText.Value()), "");
}

TEST_F(CellEditing, EditingStopsARunningSessionWithoutButton4) {
    bench.Start();
    bench.line.RunUntil(300);
    bench.Click(1, 10);
    EXPECT_EQ(ToUtf8(form.StartStopCaption()), "开始通讯");
    EXPECT_EQ(form.CycleStep, 0);
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_FALSE(form.ClearFileCommand[0].Enabled());
    EXPECT_TRUE(bench.line.PortOpen());
    bench.line.RunUntil(600);
    EXPECT_FALSE(bench.line.PortOpen());
}

TEST_F(CellEditing, EditingWhileStoppedLeavesTheStepOfTheCycle) {
    form.CycleStep = 3;  // as a late byte leaves it
    bench.Click(1, 10);
    EXPECT_EQ(form.CycleStep, 3);
}

TEST_F(CellEditing, EscapeHidesTheEditorAndLeavesTheSessionStopped) {
    bench.Start();
    bench.line.RunUntil(300);
    bench.Click(1, 10);
    PressKey(27);
    EXPECT_FALSE(form.InputText.Visible());
    bench.line.RunUntil(5000);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_THAT(bench.SentFrames(), SizeIs(1));
}

// --- The keyboard of the editor ---

TEST_F(CellEditing, EnterWritesHidesTheEditorAndStartsTheSession) {
    bench.Click(1, 10);
    bench.TypeAndEnter(u"200");
    EXPECT_FALSE(form.InputText.Visible());
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(bench.Cell(1, 10), "200");
    bench.line.RunUntil(300);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kWriteFirstRow));
}

TEST_F(CellEditing, WrittenRowIsTheGridsRowNotTheRowOfThePolling) {
    form.CurrentRow = 4;
    bench.Click(1, 10);
    bench.TypeAndEnter(u"200");
    EXPECT_EQ(ToUtf8(form.SendText), " 40 30 31 57 32 30 31 32 33 43 38 30 30 31 46 0D");
    EXPECT_EQ(form.CurrentRow, 4);
}

TEST_F(CellEditing, WrittenValueIsReadBackByTheOperationBefore) {
    form.CommandCode = 40;
    form.CurrentRow = 1;
    bench.Click(1, 10);
    bench.WillAnswer({frames::kTaken, frames::kFirstRowReply});
    bench.TypeAndEnter(u"200");
    bench.line.RunUntil(402);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kWriteFirstRow, frames::kReadFirstRow));
    EXPECT_EQ(bench.Cell(1, 6), "C800");
    EXPECT_EQ(bench.Cell(1, 9), "200");
}

TEST_F(CellEditing, EntryThatIsNoNumberEndsTheHandlerWithNothingSentAddedOrStarted) {
    bench.Click(1, 10);
    bench.TypeAndEnter(u"12,5");
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(bench.dialogs.Shown[0].number, 13);
    EXPECT_EQ(form.CommandCode, 31);
    EXPECT_FALSE(form.IsRunning());
    bench.line.RunUntil(5000);
    EXPECT_THAT(bench.SentFrames(), IsEmpty());
}

TEST_F(CellEditing, EnterUnderAProtocolWithoutAWriteStillAddsTheHundredAndStarts) {
    FormBench each;
    each.form.ProtocolCode = 42;
    InputText_KeyDown(each.form, 13);
    EXPECT_EQ(each.form.CommandCode, 131);
    EXPECT_TRUE(each.form.IsRunning());
}

TEST_F(CellEditing, OtherKeysPass) {
    bench.Click(1, 10);
    for (const int key : {0, 8, 9, 12, 14, 26, 28, 32, 48}) PressKey(key);
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_EQ(form.CommandCode, 31);
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(CellEditing, LossOfFocusOrAScrollHidesTheEditor) {
    bench.Click(1, 10);
    InputText_LostFocus(form);
    EXPECT_FALSE(form.InputText.Visible());
    bench.Click(1, 10);
    MSHFlexGrid1_Scroll(form, 0);
    EXPECT_FALSE(form.InputText.Visible());
}

TEST_F(CellEditing, EditorIsHiddenAtTheStart) { EXPECT_FALSE(form.InputText.Visible()); }

// --- The wheel ---

class Wheel : public ::testing::Test {
  protected:
    Wheel() {
        for (const int grid : {1, 2, 3}) form.MSHFlexGrid1[static_cast<std::size_t>(grid)].SetSize(4, 5);
    }

    FormBench bench;
    MainForm& form = bench.form;
};

struct WheelStep {
    int topRow;
    int delta;
    int after;
};

TEST_F(Wheel, WheelMovesAGridByOneRowBetweenTheFirstAndTheLast) {
    const WheelStep steps[] = {{1, -120, 2}, {2, -1, 3}, {1, 0, 2},   {3, -120, 3}, {3, 0, 3},
                               {3, 120, 2},  {3, 1, 2},  {2, 240, 1}, {1, 1, 1},    {1, 120, 1}};
    for (const int grid : {1, 2, 3}) {
        for (const WheelStep& step : steps) {
            form.MSHFlexGrid1[static_cast<std::size_t>(grid)].TopRow = step.topRow;
            Obj_MouseWheel(form, grid, step.delta);
            EXPECT_EQ(form.MSHFlexGrid1[static_cast<std::size_t>(grid)].TopRow, step.after)
                << grid << ": " << step.topRow << ' ' << step.delta;
        }
    }
}

TEST_F(Wheel, WheelMovesItsOwnGridAlone) {
    const auto topRows = [this] {
        std::vector<int> rows;
        for (const Grid& grid : form.MSHFlexGrid1) rows.push_back(grid.TopRow);
        return rows;
    };
    Obj_MouseWheel(form, 0, -120);
    EXPECT_THAT(topRows(), ElementsAre(2, 1, 1, 1));
    Obj_MouseWheel(form, 2, -120);
    EXPECT_THAT(topRows(), ElementsAre(2, 1, 2, 1));
}

TEST_F(Wheel, WheelReachesTheLastRowOfTheParameterGrid) {
    for (int step = 1; step <= 20; ++step) Obj_MouseWheel(form, 0, -120);
    EXPECT_EQ(form.ParameterGrid().TopRow, 14);
}

TEST_F(Wheel, WheelLeavesAGridWithoutRowsAtItsFirst) {
    form.MSHFlexGrid1[1].SetSize(0, 0);
    form.MSHFlexGrid1[2].SetSize(1, 5);
    for (const int grid : {1, 2}) {
        Obj_MouseWheel(form, grid, -120);
        EXPECT_EQ(form.MSHFlexGrid1[static_cast<std::size_t>(grid)].TopRow, 1) << grid;
    }
}

TEST_F(Wheel, WheelHidesTheEditorAlsoWhereTheGridCannotMove) {
    for (const int grid : {0, 1, 2, 3}) {
        form.InputText.SetVisible(true);
        Obj_MouseWheel(form, grid, 120);
        EXPECT_FALSE(form.InputText.Visible()) << grid;
    }
}

}  // namespace
}  // namespace commtest
