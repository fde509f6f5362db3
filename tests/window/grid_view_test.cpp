#include "window/grid_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTest>

#include "session/events.h"
#include "window/grid_view_bench.h"
#include "window/paint_watch.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- What the grid says ---

TEST_F(GridViewTest, ShowsTheCellsAndTheHeadings) {
    EXPECT_EQ(view->model()->rowCount(), kParameters);
    EXPECT_EQ(view->model()->columnCount(), 11);
    EXPECT_EQ(Shown(1, 0), "001 ");
    EXPECT_EQ(Shown(40, 1), "参数40");
    EXPECT_EQ(view->model()->headerData(10, Qt::Horizontal).toString().toStdString(), "修改值");
    EXPECT_EQ(view->accessibleName().toStdString(), "参数表");
}

TEST_F(GridViewTest, ShortInstrumentHasFourteenRowsBelowTheHeadings) {
    bench.session.Choose(kNativeProtocol, u"仪表甲");
    Look();
    EXPECT_EQ(view->model()->rowCount(), 14);
    EXPECT_EQ(Shown(1, 1), "给定值");
    EXPECT_EQ(Shown(8, 1), "");
}

TEST_F(GridViewTest, GridMadeSmallerBeforeALookIsPaintedWithoutHarm) {
    view->grab();
    grid.SetSize(3, 4);
    view->grab();
    Look();
    EXPECT_EQ(view->model()->rowCount(), 2);
    EXPECT_EQ(view->model()->columnCount(), 4);
    view->grab();
}

TEST_F(GridViewTest, ChangedCellIsPaintedAloneAndNothingBehindIt) {
    PaintWhatIsDue(window);
    const PaintWatch cells(*view->viewport());
    const PaintWatch behind(window);
    grid.SetCell(3, 5, u"7");
    Look();
    PaintWhatIsDue(window);
    EXPECT_EQ(cells.Painted(), QRegion(view->visualRect(view->model()->index(2, 5))));
    EXPECT_TRUE(behind.Painted().isEmpty());
}

TEST_F(GridViewTest, RoomThatTheCellsLeaveIsPainted) {
    form.ParameterGrid().SetRows(4);
    Look();
    PaintWhatIsDue(window);
    const QImage image = view->viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(5, image.height() - 5), bench.theme.Now().surface);
    EXPECT_EQ(OnTheScreen(window), PaintedAnew(window));
}

TEST_F(GridViewTest, CurrentCellOfTheGridIsMarked) {
    EXPECT_FALSE(view->currentIndex().isValid());
    grid.Select(3, 9);
    Look();
    EXPECT_EQ(Marked(), std::pair(3, 9));
}

TEST_F(GridViewTest, CurrentCellThatThePollingMovesDoesNotScroll) {
    grid.Select(40, 9);
    Look();
    EXPECT_EQ(Marked(), std::pair(40, 9));
    EXPECT_EQ(FirstRowInView(), 1);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(GridViewTest, TopRowOfTheGridIsInViewFirst) {
    grid.TopRow = 7;
    Look();
    EXPECT_EQ(FirstRowInView(), 7);
    grid.TopRow = 2;
    Look();
    EXPECT_EQ(FirstRowInView(), 2);
}

TEST_F(GridViewTest, TopRowOutsideTheGridIsShownAtItsEndsAndStays) {
    grid.TopRow = 5;
    Look();
    grid.TopRow = -1;
    Look();
    EXPECT_EQ(FirstRowInView(), 1);
    EXPECT_EQ(grid.TopRow, -1);
    grid.TopRow = 1000;
    Look();
    EXPECT_EQ(FirstRowInView(), kParameters - kRowsInView + 1);
    EXPECT_EQ(grid.TopRow, 1000);
}

TEST_F(GridViewTest, TopRowOutlivesAViewThatIsTooHighForIt) {
    grid.TopRow = 25;
    Look();
    view->resize(1100, kHeader + 30 * kRowHeight);
    EXPECT_EQ(FirstRowInView(), 11);
    view->resize(1100, kHeader + kRowsInView * kRowHeight);
    EXPECT_EQ(FirstRowInView(), 25);
    EXPECT_EQ(grid.TopRow, 25);
}

TEST_F(GridViewTest, NothingFollowsWhileTheRedrawIsOff) {
    grid.Redraw = false;
    Look();
    const QImage picture = view->viewport()->grab().toImage();
    grid.SetCell(2, 1, u"another");
    EXPECT_EQ(view->viewport()->grab().toImage(), picture);
    grid.Select(3, 9);
    grid.TopRow = 7;
    grid.SetRows(20);
    Look();
    EXPECT_FALSE(view->currentIndex().isValid());
    EXPECT_EQ(FirstRowInView(), 1);
    EXPECT_EQ(view->model()->rowCount(), kParameters);
    grid.Redraw = true;
    Look();
    EXPECT_NE(view->viewport()->grab().toImage(), picture);
    EXPECT_EQ(Marked(), std::pair(3, 9));
    EXPECT_EQ(FirstRowInView(), 7);
    EXPECT_EQ(view->model()->rowCount(), 19);
}

// Whether a cell is painted behind a look.
class PaintedCell : public QObject {
  public:
    PaintedCell(GridView& view, QPoint place) : view_(view), place_(place) {
        PaintWhatIsDue(*view_.window());
        view_.viewport()->installEventFilter(this);
    }
    bool IsPainted() {
        isPainted_ = false;
        PaintWhatIsDue(*view_.window());
        return isPainted_;
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            isPainted_ = isPainted_ || static_cast<QPaintEvent*>(event)->region().contains(place_);
        return false;
    }

  private:
    GridView& view_;
    QPoint place_;
    bool isPainted_ = false;
};

TEST_F(GridViewTest, CellThatIsGivenAColourIsPaintedAnew) {
    Look();
    PaintedCell cell(*view, Place(2, 6));
    for (const Colour colour : {0x80000005U, 0xC0C0FFU, 0x80000005U}) {
        grid.SetCellColour(2, 6, colour);
        Look();
        EXPECT_TRUE(cell.IsPainted()) << colour;
        grid.SetCellColour(2, 6, colour);
        Look();
        EXPECT_FALSE(cell.IsPainted()) << colour;
    }
}

// --- The keyboard ---

struct KeyMove {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::pair<int, int> to;  // from row 3, column 9
};

TEST_F(GridViewTest, KeysMoveTheCurrentCellOfTheGrid) {
    const std::vector<KeyMove> moves = {
        {Qt::Key_Down, {}, {4, 9}},   {Qt::Key_Up, {}, {2, 9}},
        {Qt::Key_Left, {}, {3, 8}},   {Qt::Key_Right, {}, {3, 10}},
        {Qt::Key_Home, {}, {3, 0}},   {Qt::Key_End, {}, {3, 10}},
        {Qt::Key_PageUp, {}, {1, 9}}, {Qt::Key_Home, Qt::ControlModifier, {1, 0}},
    };
    for (const KeyMove& move : moves) {
        grid.Select(3, 9);
        Look();
        Key(move.key, move.modifiers);
        EXPECT_EQ(Current(), move.to) << move.key;
        EXPECT_EQ(Marked(), move.to) << move.key;
        EXPECT_EQ(grid.TopRow, 1) << move.key;
    }
}

TEST_F(GridViewTest, KeyThatLeavesTheViewScrollsAndIsNoClick) {
    grid.Select(10, 10);
    Look();
    ShowEditor();
    Key(Qt::Key_Down);
    EXPECT_EQ(Current(), std::pair(11, 10));
    EXPECT_EQ(FirstRowInView(), 2);
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_FALSE(form.InputText.Visible());
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Current(), std::pair(40, 10));
    EXPECT_EQ(grid.TopRow, 31);
    Key(Qt::Key_PageUp);
    EXPECT_LT(grid.Row, 32);
    EXPECT_EQ(grid.TopRow, grid.Row);
    EXPECT_FALSE(form.InputText.Visible());
}

TEST_F(GridViewTest, PageDownMovesByTheRowsInView) {
    grid.Select(1, 6);
    Look();
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Current(), std::pair(11, 6));
    EXPECT_EQ(grid.TopRow, 2);
}

TEST_F(GridViewTest, FirstKeyLeavesTheHeadings) {
    ASSERT_EQ(Current(), std::pair(0, 0));
    Key(Qt::Key_Down);
    EXPECT_EQ(Current(), std::pair(1, 0));
}

TEST_F(GridViewTest, FocusAloneMovesNothing) {
    view->clearFocus();
    view->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Current(), std::pair(0, 0));
    EXPECT_FALSE(view->currentIndex().isValid());
}

TEST_F(GridViewTest, CellOnTheHeadingsIsNotMarked) {
    Click(3, 1);
    grid.Select(0, 0);
    Look();
    EXPECT_FALSE(view->currentIndex().isValid());
    EXPECT_FALSE(view->selectionModel()->hasSelection());
    EXPECT_EQ(Current(), std::pair(0, 0));
}

TEST_F(GridViewTest, KeyGoesOnFromWhereThePollingHasMovedTheCell) {
    grid.Select(30, 9);
    Look();
    Key(Qt::Key_Down);
    EXPECT_EQ(Current(), std::pair(31, 9));
    EXPECT_EQ(grid.TopRow, 22);
}

TEST_F(GridViewTest, TabLeavesTheGrid) {
    auto* next = new QWidget(&window);
    next->setFocusPolicy(Qt::TabFocus);
    next->setGeometry(0, 400, 100, 20);
    next->show();
    QWidget::setTabOrder(view, next);
    grid.Select(3, 1);
    Look();
    Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), next);
    EXPECT_EQ(Current(), std::pair(3, 1));
}

TEST_F(GridViewTest, F2AndEnterDoWhatAClickDoes) {
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        form.InputText.SetVisible(false);
        grid.Select(2, 10);
        grid.SetCell(2, 10, u"12.5");
        Look();
        Key(key);
        EXPECT_TRUE(form.InputText.Visible()) << key;
        EXPECT_EQ(ToUtf8(form.InputText.Value()), "12.5");
    }
}

TEST_F(GridViewTest, EnterOnTheHeadingsDoesNothing) {
    form.InputText.SetVisible(true);
    Key(Qt::Key_Return);
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_THAT(bench.session.dialogs.Texts(), IsEmpty());
}

// --- A click ---

TEST_F(GridViewTest, PressMovesTheCellAndTheReleaseIsTheClick) {
    Press(2, 10);
    EXPECT_EQ(Current(), std::pair(2, 10));
    EXPECT_FALSE(form.InputText.Visible());
    Release(2, 10);
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::CellEditor);
}

TEST_F(GridViewTest, ReleaseOnAnotherCellIsNoClick) {
    Press(2, 10);
    Release(3, 10);
    EXPECT_FALSE(form.InputText.Visible());
    Release(2, 10);
    EXPECT_FALSE(form.InputText.Visible());
}

TEST_F(GridViewTest, ClickOnACellThatIsPartlyInViewIsAClick) {
    view->resize(900, kHeader + 8 * kRowHeight + 8);
    const QPoint corner(view->viewport()->width() - 3, view->viewport()->height() - 3);
    const QModelIndex cell = view->indexAt(corner);
    ASSERT_EQ(cell.column(), 10);
    ASSERT_FALSE(view->viewport()->rect().contains(view->visualRect(cell)));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, corner);
    EXPECT_EQ(Current(), std::pair(cell.row() + 1, 10));
    EXPECT_TRUE(form.InputText.Visible());
}

TEST_F(GridViewTest, ClickBelowTheLastRowIsNoClick) {
    grid.SetRows(4);
    grid.Select(2, 10);
    Look();
    ShowEditor();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(20, 9 * kRowHeight));
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_EQ(Current(), std::pair(2, 10));
}

TEST_F(GridViewTest, OtherButtonsNeitherMoveTheCellNorClick) {
    grid.Select(1, 1);
    Look();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        Press(2, 10, button);
        Release(2, 10, button);
        EXPECT_EQ(Current(), std::pair(1, 1)) << button;
        EXPECT_FALSE(form.InputText.Visible()) << button;
    }
}

TEST_F(GridViewTest, ReleaseOfAnotherButtonIsNoClick) {
    Press(2, 10);
    Release(2, 10, Qt::RightButton);
    EXPECT_FALSE(form.InputText.Visible());
}

TEST_F(GridViewTest, ClickOnAWritableCellStopsTheSession) {
    bench.session.Start();
    bench.session.line.RunUntil(300);
    ASSERT_TRUE(form.IsRunning());
    Click(2, 10);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 0);
}

TEST_F(GridViewTest, ReadOnlyParameterIsRefusedAndTheViewStandsStillUntilTheNextRequest) {
    Click(kReadOnlyRow, 10);
    EXPECT_THAT(bench.session.dialogs.Texts(), ElementsAre("注意:参数没有W属性,数据无法修改！"));
    EXPECT_FALSE(form.InputText.Visible());
    const QImage picture = view->viewport()->grab().toImage();
    grid.SetCell(1, 1, u"another");
    Look();
    EXPECT_EQ(view->viewport()->grab().toImage(), picture);
    Click(1, 9);
    EXPECT_NE(view->viewport()->grab().toImage(), picture);
}

TEST_F(GridViewTest, ClickInTheSingleReadColumnPicksTheRowToRead) {
    form.CommandCode = 40;
    Click(7, 6);
    EXPECT_EQ(form.CurrentRow, 7);
    form.CommandCode = 31;
    Click(8, 6);
    EXPECT_EQ(form.CurrentRow, 7);
}

TEST_F(GridViewTest, ClickTellsHowTheValueOfTheRowIsReached) {
    form.MeterCodeText = u"11010101";
    grid.SetCell(3, 6, u"FFFF");
    Press(3, 6, Qt::RightButton);
    Release(3, 6, Qt::RightButton);
    EXPECT_EQ(ToUtf8(form.ConCommString[0].WholeText()), "");
    Click(3, 6);
    EXPECT_THAT(ToUtf8(form.ConCommString[0].WholeText()), ::testing::HasSubstr("FFFF"));
}

TEST_F(GridViewTest, ClickCountsWhereItWasPressedThoughThePollingMovesTheCell) {
    Press(2, 10);
    grid.Select(7, 6);
    Look();
    Release(2, 10);
    EXPECT_EQ(Current(), std::pair(2, 10));
    EXPECT_TRUE(form.InputText.Visible());
}

TEST_F(GridViewTest, ClickInAnotherColumnHidesTheEditor) {
    Click(2, 10);
    ASSERT_TRUE(form.InputText.Visible());
    Click(2, 9);
    EXPECT_FALSE(form.InputText.Visible());
}

TEST_F(GridViewTest, DoubleClickOnTheParametersIsOneClick) {
    Click(kReadOnlyRow, 10);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, Place(kReadOnlyRow, 10));
    Release(kReadOnlyRow, 10);
    EXPECT_EQ(bench.session.dialogs.Texts().size(), 1u);
}

// --- Scrolling ---

TEST_F(GridViewTest, ScrollBarMovesTheTopRowAndHidesTheEditor) {
    ShowEditor();
    view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_FALSE(form.InputText.Visible());
    ShowEditor();
    view->verticalScrollBar()->setSliderDown(true);
    view->verticalScrollBar()->setSliderPosition(20);
    EXPECT_EQ(grid.TopRow, 21);
    EXPECT_EQ(FirstRowInView(), 21);
    EXPECT_FALSE(form.InputText.Visible());
    Look();
    EXPECT_EQ(FirstRowInView(), 21);
}

TEST_F(GridViewTest, HorizontalScrollHidesTheEditorAndLeavesTheTopRow) {
    view->resize(600, kHeader + 200);
    grid.TopRow = 5;
    Look();
    ShowEditor();
    view->horizontalScrollBar()->setValue(100);
    EXPECT_FALSE(form.InputText.Visible());
    EXPECT_EQ(grid.TopRow, 5);
}

class GridWheelTest : public GridViewTest {
  protected:
    void Turn(int y, int x = 0) { Turn(*view, y, x); }
    void Turn(GridView& turned, int y, int x = 0) {
        const QPointF place(50, 50);
        QWheelEvent event(place, turned.viewport()->mapToGlobal(place), {}, {x, y}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(turned.viewport(), &event);
    }
};

TEST_F(GridWheelTest, StepMovesByOneRow) {
    Turn(-120);
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_EQ(FirstRowInView(), 2);
    Turn(-120);
    EXPECT_EQ(FirstRowInView(), 3);
    Turn(120);
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_EQ(FirstRowInView(), 2);
}

TEST_F(GridWheelTest, SeveralStepsAtOnceAreThatManyRows) {
    Turn(-360);
    EXPECT_EQ(FirstRowInView(), 4);
    Turn(240);
    EXPECT_EQ(FirstRowInView(), 2);
}

TEST_F(GridWheelTest, PartsOfAStepAddUp) {
    Turn(-60);
    EXPECT_EQ(FirstRowInView(), 1);
    Turn(-60);
    EXPECT_EQ(FirstRowInView(), 2);
    Turn(-60);
    Turn(60);
    EXPECT_EQ(FirstRowInView(), 2);
}

TEST_F(GridWheelTest, TopRowStaysBetweenTheFirstAndTheLastRow) {
    Turn(120);
    EXPECT_EQ(grid.TopRow, 1);
    for (int step = 0; step < kParameters + 5; ++step) {
        Turn(-120);
        EXPECT_LE(grid.TopRow, kParameters);
    }
    EXPECT_EQ(FirstRowInView(), 31);
    Turn(120);
    EXPECT_EQ(FirstRowInView(), 30);
    EXPECT_EQ(grid.TopRow, 30);
}

TEST_F(GridWheelTest, StepGoesOnFromTheRowInView) {
    grid.TopRow = -1;
    Look();
    Turn(-120);
    EXPECT_EQ(grid.TopRow, 2);
}

TEST_F(GridWheelTest, StepHidesTheEditor) {
    ShowEditor();
    Turn(-120);
    EXPECT_FALSE(form.InputText.Visible());
}

TEST_F(GridWheelTest, SidewaysTurnLeavesTheTopRow) {
    Turn(0, -120);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(FirstRowInView(), 1);
}

TEST_F(GridWheelTest, EveryGridScrollsItself) {
    Grid& list = form.MSHFlexGrid1[1];
    list.SetSize(30, 5);
    GridView* listView = Add(1);
    Turn(*listView, -120);
    EXPECT_EQ(list.TopRow, 2);
    EXPECT_EQ(listView->rowAt(0) + 1, 2);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(FirstRowInView(), 1);
}

// --- Copying ---

TEST_F(GridViewTest, CopyTakesTheCurrentCell) {
    grid.Select(3, 1);
    Look();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "参数3");
}

TEST_F(GridViewTest, CopyTakesADraggedRangeAsLinesWithTabs) {
    Press(2, 1);
    DragTo(3, 3);
    Release(3, 3);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "参数2\t0123\t2\n参数3\t0123\t2");
}

TEST_F(GridViewTest, CopyTakesARangeDraggedUpwards) {
    Press(3, 2);
    DragTo(2, 1);
    Release(2, 1);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "参数2\t0123\n参数3\t0123");
}

TEST_F(GridViewTest, CopyTakesARangeChosenByKeys) {
    grid.Select(3, 1);
    Look();
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "参数3\n参数4");
}

TEST_F(GridViewTest, CopyWithoutASelectionLeavesTheClipboard) {
    QApplication::clipboard()->setText("before");
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "before");
}

// --- Widths ---

TEST_F(GridViewTest, ColumnsFillTheViewAndScrollWhereTheyDoNotFit) {
    EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
    EXPECT_FALSE(view->horizontalScrollBar()->isVisible());
    view->resize(600, 300);
    EXPECT_EQ(view->horizontalHeader()->length(), 998);
    EXPECT_GT(view->horizontalScrollBar()->maximum(), 0);
}

TEST_F(GridViewTest, WidthOfTheUserStaysAndIsRestored) {
    view->horizontalHeader()->resizeSection(1, 320);
    view->resize(1150, 300);
    EXPECT_EQ(view->columnWidth(1), 320);
    bench.session.Choose(kNativeProtocol, u"仪表甲");
    Look();
    EXPECT_EQ(view->columnWidth(1), 320);
    GridView* later = Add(0);
    later->RestoreWidths(view->SaveWidths());
    EXPECT_EQ(later->columnWidth(1), 320);
    later->RestoreWidths("garbage");
    EXPECT_EQ(later->columnWidth(1), 320);
}

TEST_F(GridViewTest, FirstWidthsAreNotTheUsers) {
    GridView* later = Add(0);
    later->RestoreWidths(view->SaveWidths());
    later->resize(600, 300);
    EXPECT_EQ(later->columnWidth(1), 172);
}

TEST_F(GridViewTest, HeadOfTheCurrentColumnIsMarked) {
    const auto marked = [this] {
        std::vector<int> columns;
        const QImage image = view->horizontalHeader()->viewport()->grab().toImage();
        for (int col = 0; col < 11; ++col) {
            const int left = view->columnViewportPosition(col);
            bool has = false;
            for (int x = left; x < left + view->columnWidth(col); ++x) {
                for (int y = 0; y < kHeader; ++y) has |= image.pixelColor(x, y) == bench.theme.Now().accent;
            }
            if (has) columns.push_back(col);
        }
        return columns;
    };
    for (int col = 0; col < 11; ++col) grid.SetCell(0, col, u"██");
    Look();
    EXPECT_THAT(marked(), IsEmpty());
    grid.Select(3, 9);
    Look();
    EXPECT_THAT(marked(), ElementsAre(9));
    Key(Qt::Key_Left);
    EXPECT_THAT(marked(), ElementsAre(8));
}

}  // namespace
}  // namespace commtest::testing
