#include "window/grid_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QProxyStyle>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "session/events.h"
#include "support/form_bench.h"
#include "window/main_window.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Text kLongInstrument = u"仪表乙";
constexpr int kParameters = 40;
constexpr int kReadOnlyRow = 5;

void AddLongInstrument(BenchSession& session) {
    std::vector<TestParameter> parameters;
    for (int row = 1; row <= kParameters; ++row) {
        const Text attribute = row == kReadOnlyRow ? u"R" : u"RW";
        parameters.push_back({u"参数" + FromUtf8(std::to_string(row)), u"0123", u"2", attribute, u"0"});
    }
    session.Add(kLongInstrument, kNativeProtocol, u"1102", parameters);
}

// An instrument of 40 parameters, of which ten rows are in view.
class GridViewTest : public ::testing::Test {
  protected:
    static constexpr int kRowHeight = 22;
    static constexpr int kRowsInView = 10;
    static constexpr int kHeader = 26;

    ViewBench bench;
    MainForm& form = bench.Form();
    Grid& grid = form.ParameterGrid();
    QWidget window;
    GridView* view = nullptr;

    GridViewTest() {
        window.resize(1200, 600);
        AddLongInstrument(bench.session);
        bench.session.Choose(kNativeProtocol, kLongInstrument);
        view = Add(0);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        view->setFocus();
    }

    GridView* Add(int index) {
        auto* added = new GridView(bench.binder, bench.theme, index, &window);
        added->SetRowHeight(kRowHeight);
        added->setGeometry(0, 0, 1100, kHeader + kRowsInView * kRowHeight);
        added->show();
        return added;
    }

    void Look() { bench.binder.Look(); }
    std::pair<int, int> Current() const { return {grid.Row, grid.Col}; }
    std::pair<int, int> Marked() const {
        return {view->currentIndex().row() + 1, view->currentIndex().column()};
    }
    int FirstRowInView() const { return view->rowAt(0) + 1; }
    std::string Shown(int row, int col) const {
        return view->model()->index(row - 1, col).data().toString().toStdString();
    }

    QPoint Place(int row, int col) const {
        return view->visualRect(view->model()->index(row - 1, col)).center();
    }
    void Press(int row, int col, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(view->viewport(), button, {}, Place(row, col));
    }
    void Release(int row, int col, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(view->viewport(), button, {}, Place(row, col));
    }
    void Click(int row, int col) {
        Press(row, col);
        Release(row, col);
    }
    void DragTo(int row, int col) {
        const QPointF place(Place(row, col));
        QMouseEvent move(QEvent::MouseMove, place, view->viewport()->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &move);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(view, key, modifiers); }
    void ShowEditor() {
        form.InputText.SetVisible(true);
        Look();
    }
};

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

TEST_F(GridViewTest, LettersMoveNothing) {
    grid.Select(3, 1);
    Look();
    QTest::keyClicks(view, "0xa");
    EXPECT_EQ(Current(), std::pair(3, 1));
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

// --- The right-mouse menus ---

using Entries = std::vector<std::string>;  // "-" a separator, "(...)" one that cannot be chosen

class GridMenuTest : public GridViewTest {
  protected:
    QMenu* AskMenu(GridView& asked, QPoint place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, asked.viewport()->mapToGlobal(place));
        QApplication::sendEvent(asked.viewport(), &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    QMenu* AskMenu(int row = 2, int col = 1) { return AskMenu(*view, Place(row, col)); }

    static Entries EntriesOf(QMenu* menu) {
        Entries entries;
        if (menu == nullptr) return entries;
        for (const QAction* action : menu->actions()) {
            const std::string caption = action->text().toStdString();
            if (action->isSeparator()) {
                entries.push_back("-");
            } else {
                entries.push_back(action->isEnabled() ? caption : "(" + caption + ")");
            }
        }
        menu->close();
        return entries;
    }

    void Choose(QMenu* menu, const QString& caption) {
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text() == caption) action->trigger();
        }
        menu->close();
    }
};

TEST_F(GridMenuTest, NativeProtocolsBringTheirReads) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{11, 12, 13}) {
        form.ProtocolCode = code;
        EXPECT_THAT(EntriesOf(AskMenu()),
                    ElementsAre("读取动态数据(RD)", "读取静态数据(RR)", "读取动/静态数据(RR/RD)", "-",
                                "读取本行(RE)", "逐个读取(RE)", "多个读取(RE)", "-", "清除该列内容", "-",
                                "串口通讯仿真", "系统小工具(校验/浮点数)"))
            << code;
    }
}

TEST_F(GridMenuTest, ModbusProtocolsBringTheirsAndCode41LacksTheFixedRead) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{21, 22, 31, 32, 34, 35, 41}) {
        form.ProtocolCode = code;
        EXPECT_THAT(EntriesOf(AskMenu()),
                    ElementsAre("逐个读取数据", code == 41 ? "(固定读取数据)" : "固定读取数据",
                                "多个读取数据", "读取板卡类型", "通讯测试(固定)", "通讯测试(递增)", "-",
                                "清除该列内容", "-", "串口通讯仿真", "系统小工具(校验/浮点数)"))
            << code;
    }
}

TEST_F(GridMenuTest, RecorderAndFlowMeterBringTheirs) {
    form.ProtocolCode = 33;
    EXPECT_THAT(EntriesOf(AskMenu()),
                ElementsAre("实时测量数据", "仪表组态数据", "-", "历史数据", "-", "清除该列内容", "-",
                            "串口通讯仿真", "系统小工具(校验/浮点数)"));
    form.ProtocolCode = 51;
    EXPECT_THAT(EntriesOf(AskMenu()),
                ElementsAre("读时间值", "实时数据", "-", "日累积值", "月累积值", "年累积值", "总累积值", "-",
                            "全部数据", "系统小工具(校验/浮点数)"));
}

TEST_F(GridMenuTest, OtherProtocolsBringNone) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 14, 23, 42}) {
        form.ProtocolCode = code;
        EXPECT_EQ(AskMenu(), nullptr) << code;
    }
}

TEST_F(GridMenuTest, ListsBringTheirsAndTheChipListNone) {
    for (const int index : {1, 2, 3}) form.MSHFlexGrid1[static_cast<std::size_t>(index)].SetSize(5, 5);
    EXPECT_THAT(EntriesOf(AskMenu(*Add(1), {60, 30})), ElementsAre("显示数据", "-", "刷新数据"));
    EXPECT_THAT(EntriesOf(AskMenu(*Add(2), {60, 30})),
                ElementsAre("更改名称", "更改说明", "-", "删除......", "-", "刷新......"));
    EXPECT_EQ(AskMenu(*Add(3), {60, 30}), nullptr);
}

struct Choice {
    std::int16_t protocol;
    QString caption;
    std::int32_t commandCode;
};

TEST_F(GridMenuTest, EntrySetsTheCommandCode) {
    const std::vector<Choice> choices = {
        {11, "读取动态数据(RD)", 10}, {11, "读取静态数据(RR)", 20}, {11, "读取动/静态数据(RR/RD)", 31},
        {11, "读取本行(RE)", 40},     {11, "逐个读取(RE)", 50},     {11, "多个读取(RE)", 60},
        {31, "逐个读取数据", 50},     {31, "固定读取数据", 40},     {31, "多个读取数据", 60},
        {31, "读取板卡类型", 80},     {31, "通讯测试(固定)", 90},   {31, "通讯测试(递增)", 91},
        {33, "实时测量数据", 10},     {33, "历史数据", 77},         {51, "读时间值", 10},
        {51, "总累积值", 77},
    };
    for (const Choice& choice : choices) {
        form.ProtocolCode = choice.protocol;
        form.CommandCode = 77;
        Choose(AskMenu(), choice.caption);
        EXPECT_EQ(form.CommandCode, choice.commandCode) << choice.caption.toStdString();
    }
}

TEST_F(GridMenuTest, ClearingEmptiesTheCurrentColumnFromRowSixOn) {
    for (int row = 1; row <= kParameters; ++row) {
        grid.SetCell(row, 6, u"C800");
        grid.SetCell(row, 9, u"200");
    }
    grid.Select(2, 6);
    Look();
    Choose(AskMenu(3, 9), "清除该列内容");
    EXPECT_EQ(Shown(5, 6), "C800");
    for (const int row : {6, 7, kParameters}) EXPECT_EQ(Shown(row, 6), "") << row;
    EXPECT_EQ(Shown(6, 9), "200");
}

TEST_F(GridMenuTest, ReplayIsTicked) {
    Choose(AskMenu(), "串口通讯仿真");
    EXPECT_TRUE(form.ConMyCommDriver.Value());
}

TEST_F(GridMenuTest, CatalogueIsRefreshedFromTheStore) {
    GridView* list = Add(1);
    form.SSTab2.Choose(2);
    Look();
    const int rows = form.MSHFlexGrid1[1].Rows();
    bench.session.Add(u"仪表丙", kNativeProtocol, u"1103", {{u"给定值", u"0123", u"2", u"RW", u"0"}});
    Choose(AskMenu(*list, {60, 30}), "刷新数据");
    EXPECT_EQ(form.MSHFlexGrid1[1].Rows(), rows + 1);
    EXPECT_EQ(list->model()->rowCount(), rows);
}

TEST_F(GridMenuTest, MenuKeysBringItAtTheCurrentCell) {
    grid.Select(3, 2);
    Look();
    const QPoint corner = view->visualRect(view->model()->index(2, 2)).bottomLeft();
    const QPoint expected = view->viewport()->mapToGlobal(corner);
    Key(Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), expected);
    EXPECT_EQ(menu->actions().size(), 12);
    menu->close();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, view->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(view->viewport(), &event);
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), expected);
    menu->close();
}

TEST_F(GridMenuTest, ClosedMenusAreGone) {
    for (int time = 0; time < 3; ++time) AskMenu()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(view->findChildren<QMenu*>(), IsEmpty());
}

TEST(RecordingMenu, EntryGoesToTheRowUnderThePointer) {
    FormBench bench;
    Binder binder(bench.form);
    Theme theme(Theme::Choice::Light);
    Grid& list = bench.form.MSHFlexGrid1[2];
    list.SetSize(6, 4);
    list.Select(1, 1);
    GridView view(binder, theme, 2, nullptr);
    view.resize(400, 300);
    view.show();
    const QPoint place = view.visualRect(view.model()->index(2, 1)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view.viewport(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->actions().at(3)->trigger();
    menu->close();
    EXPECT_THAT(bench.companions.Calls, ElementsAre("ChangeRecording 4 3"));
    EXPECT_EQ(list.Row, 1);
}

// --- The lists ---

class CatalogueListTest : public GridViewTest {
  protected:
    Grid& list = form.MSHFlexGrid1[1];
    GridView* listView = nullptr;
    std::vector<std::string> clicks;

    CatalogueListTest() {
        listView = Add(1);
        list.SetSize(4, 5);
        list.SetCell(2, 1, kNativeProtocol);
        list.SetCell(2, 3, u"仪表甲");
        form.SSTab2.Choose(1);
        Look();
        Note(form.ConCommTypeList, "protocol");
        Note(form.ConMeterName[0], "instrument");
    }

    void Note(ListControl& control, const std::string& name) {
        control.Click = [this, name, click = control.Click] {
            clicks.push_back(name);
            click();
        };
    }

    QPoint PlaceInList() const { return listView->visualRect(listView->model()->index(1, 2)).center(); }
    void ClickList() { QTest::mouseClick(listView->viewport(), Qt::LeftButton, {}, PlaceInList()); }
};

TEST_F(CatalogueListTest, ClickChoosesTheInstrumentOfTheRowAndTheFirstPage) {
    ClickList();
    EXPECT_EQ(ToUtf8(form.ConMeterName[0].Value()), "仪表甲");
    EXPECT_EQ(list.Row, 2);
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    EXPECT_THAT(clicks, ElementsAre("instrument"));
    EXPECT_EQ(Shown(1, 1), "给定值");
}

TEST_F(CatalogueListTest, ClickChoosesTheProtocolIfItIsAnother) {
    list.SetCell(2, 1, u"ModBus-RTU协议");
    ClickList();
    EXPECT_EQ(ToUtf8(form.ConCommTypeList.Value()), "ModBus-RTU协议");
    EXPECT_EQ(clicks.front(), "protocol");
}

TEST_F(CatalogueListTest, SecondPressChoosesAgainWhateverStandsThereByThen) {
    ClickList();
    clicks.clear();
    listView->hide();
    const QPoint place = view->viewport()->mapFromGlobal(listView->viewport()->mapToGlobal(PlaceInList()));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    // The protocol brings its first instrument, then the row's own is chosen.
    EXPECT_THAT(clicks, ElementsAre("protocol", "instrument", "instrument"));
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::CatalogueGrid);
    EXPECT_EQ(Current(), std::pair(0, 0));
}

TEST_F(CatalogueListTest, EnterChoosesWithoutWaitingForASecondClick) {
    list.Select(2, 2);
    Look();
    QTest::keyClick(listView, Qt::Key_Return);
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    clicks.clear();
    Click(1, 9);
    EXPECT_EQ(Current(), std::pair(1, 9));
    EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(CatalogueListTest, ClickOnTheParametersAwaitsNoSecondOne) {
    Click(1, 9);
    Click(1, 9);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::ParameterGrid);
}

TEST(RecordingList, ClickAndDoubleClickLoadTheRecordingOfTheRow) {
    FormBench bench;
    Binder binder(bench.form);
    Theme theme(Theme::Choice::Light);
    bench.form.MSHFlexGrid1[2].SetSize(6, 4);
    GridView view(binder, theme, 2, nullptr);
    view.resize(400, 300);
    view.show();
    const QPoint place = view.visualRect(view.model()->index(2, 1)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    EXPECT_THAT(bench.companions.Calls, ElementsAre("LoadRecording 3"));
    EXPECT_EQ(bench.form.SSTab2.Chosen(), 0);
    bench.form.SSTab2.Choose(3);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    EXPECT_THAT(bench.companions.Calls, ElementsAre("LoadRecording 3", "LoadRecording 3"));
    EXPECT_EQ(bench.form.SSTab2.Chosen(), 3);
}

// The real way of a double click: the first click takes the list away, the second one falls on the page that
// stands there by then.
TEST(CatalogueInTheWindow, DoubleClickLeavesTheOtherPageAlone) {
    NativeBench session;
    AddLongInstrument(session);
    Theme theme(Theme::Choice::Light);
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    MainWindow window(session.Form(), theme, settings);
    window.show();
    (void)QTest::qWaitForWindowActive(&window);
    session.Form().SSTab2.Choose(2);
    window.Views().Look();
    const Grid& list = session.Form().MSHFlexGrid1[1];
    int row = 1;
    while (row < list.Rows() && list.Cell(row, 3) != kLongInstrument) ++row;
    ASSERT_LT(row, list.Rows());
    auto* listView = FindNamed<GridView>(window, u"仪表清单"_s);
    ASSERT_TRUE(listView->isVisible());
    int choices = 0;
    session.Form().ConMeterName[0].Click = [&choices, click = session.Form().ConMeterName[0].Click] {
        ++choices;
        click();
    };
    const QPoint place = listView->visualRect(listView->model()->index(row - 1, 2)).center();
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {},
                       listView->viewport()->mapTo(&window, place));
    EXPECT_EQ(choices, 3);  // the click, then the protocol's first one and the row's
    EXPECT_EQ(session.Form().SSTab2.Chosen(), 0);
    EXPECT_EQ(session.Form().ParameterGrid().Row, 0);
}

// --- Cells that light up ---

class QuietStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animate ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

class GridFlashTest : public GridViewTest {
  protected:
    GridFlashTest() {
        view->setStyle(&style);
        grid.SetRows(grid.Rows() + 1);  // as with a new instrument, nothing lights up
        for (int col = 0; col < 11; ++col) grid.SetCell(3, col, u"1");
        Look();
    }

    // Whether the ground of a cell is not what the same cell two rows further on has.
    bool IsLit(int row, int col) {
        const QImage image = view->viewport()->grab().toImage();
        const auto ground = [&](int at) {
            const QRect cell = view->visualRect(view->model()->index(at - 1, col));
            return image.pixelColor(cell.left() + 4, cell.top() + 4);
        };
        return ground(row) == bench.theme.Now().flash && ground(row + 2) != bench.theme.Now().flash;
    }

    class Lively : public QProxyStyle {
      public:
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const override {
            return hint == SH_Widget_Animate ? 1 : QProxyStyle::styleHint(hint, option, widget, data);
        }
    };
    Lively style;
};

TEST_F(GridFlashTest, ChangedReadingsLightUpAndOtherColumnsDoNot) {
    for (int col = 0; col < 11; ++col) {
        grid.SetCell(3, col, u"2");
        Look();
        EXPECT_EQ(IsLit(3, col), col >= 6 && col <= 9) << col;
    }
}

TEST_F(GridFlashTest, SameTextAndEmptiedCellStayDark) {
    grid.SetCell(3, 9, u"1");
    grid.SetCell(3, 8, u"");
    Look();
    EXPECT_FALSE(IsLit(3, 9));
    EXPECT_FALSE(IsLit(3, 8));
}

TEST_F(GridFlashTest, FirstReadingOfAnEmptyCellLightsUp) {
    grid.SetCell(4, 9, u"1");
    Look();
    EXPECT_TRUE(IsLit(4, 9));
}

TEST_F(GridFlashTest, ReadingsOfANewInstrumentStayDark) {
    grid.SetCell(3, 9, u"2");
    Look();
    ASSERT_TRUE(IsLit(3, 9));
    grid.Clear();
    grid.SetCell(3, 8, u"3");
    Look();
    EXPECT_FALSE(IsLit(3, 8));
    EXPECT_FALSE(IsLit(3, 9));
    grid.SetCell(3, 8, u"4");
    Look();
    EXPECT_TRUE(IsLit(3, 8));
}

TEST_F(GridFlashTest, RowsThatAreScrolledIntoViewStayDark) {
    grid.SetCell(20, 9, u"1");
    Look();
    grid.SetCell(20, 9, u"2");
    grid.TopRow = 18;
    Look();
    EXPECT_FALSE(IsLit(20, 9));
    grid.SetCell(20, 9, u"3");
    Look();
    EXPECT_TRUE(IsLit(20, 9));
}

TEST_F(GridFlashTest, RowsThatStayInViewLightUpAfterAScroll) {
    grid.TopRow = 2;
    Look();
    grid.SetCell(3, 9, u"2");
    Look();
    EXPECT_TRUE(IsLit(3, 9));
    EXPECT_FALSE(IsLit(4, 9));
}

TEST_F(GridFlashTest, NothingLightsUpWhereAnimationsAreOff) {
    QuietStyle quiet;
    view->setStyle(&quiet);
    grid.SetCell(3, 9, u"2");
    Look();
    EXPECT_FALSE(IsLit(3, 9));
    view->setStyle(&style);
}

TEST_F(GridFlashTest, ListsDoNotLightUp) {
    Grid& list = form.MSHFlexGrid1[1];
    list.SetSize(8, 11);
    GridView* listView = Add(1);
    listView->setStyle(&style);
    list.SetCell(3, 6, u"1");
    Look();
    const QRect cell = listView->visualRect(listView->model()->index(2, 6));
    const QImage image = listView->viewport()->grab().toImage();
    EXPECT_NE(image.pixelColor(cell.left() + 4, cell.top() + 4), bench.theme.Now().flash);
}

}  // namespace
}  // namespace commtest::testing
