#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QEnterEvent>
#include <QScrollBar>
#include <QTest>

#include "window/follow_tick.h"
#include "window/grid_view_bench.h"

namespace commtest::testing {
namespace {

// The view of the parameters over a clock of its own.
class GridHoldTest : public GridViewTest {
  protected:
    qint64 now = 1000;

    GridHoldTest() {
        view = new GridView(bench.binder, bench.theme, 0, &window, [this] { return now; });
        view->SetRowHeight(kRowHeight);
        view->setGeometry(0, 0, 1100, kHeader + kRowsInView * kRowHeight);
        view->show();
    }

    void PointerEnters() {
        QEnterEvent event({50, 50}, {50, 50}, {50, 50});
        QApplication::sendEvent(view, &event);
    }
    void PointerLeaves() {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(view, &event);
    }
    void ThePollingMovesTo(int topRow) {
        grid.TopRow = topRow;
        Look();
    }
};

TEST_F(GridHoldTest, StandsStillWhileThePointerIsOverItAndGoesThereWhenItLeaves) {
    PointerEnters();
    ThePollingMovesTo(7);
    EXPECT_EQ(FirstRowInView(), 1);
    EXPECT_EQ(grid.TopRow, 7);
    EXPECT_EQ(view->Holds(), HoldReason::Pointer);
    PointerLeaves();
    Look();
    EXPECT_EQ(FirstRowInView(), 7);
    EXPECT_EQ(view->Holds(), HoldReason::None);
}

TEST_F(GridHoldTest, StandsStillWhileACellIsEdited) {
    ShowEditor();
    ThePollingMovesTo(7);
    EXPECT_EQ(FirstRowInView(), 1);
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_EQ(view->Holds(), HoldReason::Editing);
    form.InputText.SetVisible(false);
    Look();
    EXPECT_EQ(FirstRowInView(), 7);
}

TEST_F(GridHoldTest, StandsStillForThreeSecondsBehindAScroll) {
    view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(FirstRowInView(), 2);
    now += 2999;
    ThePollingMovesTo(20);
    EXPECT_EQ(FirstRowInView(), 2);
    EXPECT_EQ(view->Holds(), HoldReason::Scrolled);
    now += 1;
    Look();
    EXPECT_EQ(FirstRowInView(), 20);
    EXPECT_EQ(view->Holds(), HoldReason::None);
}

TEST_F(GridHoldTest, ScrollsOfTheUserGoOnWhileItIsHeld) {
    PointerEnters();
    ThePollingMovesTo(20);
    const QPointF place(50, 50);
    QWheelEvent turn(place, view->viewport()->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(view->viewport(), &turn);
    EXPECT_EQ(FirstRowInView(), 2);
    EXPECT_EQ(grid.TopRow, 2);
    view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(FirstRowInView(), 3);
    EXPECT_EQ(grid.TopRow, 3);
}

TEST_F(GridHoldTest, ClickInAHeldViewLeavesTheTopRowOfTheCore) {
    PointerEnters();
    ThePollingMovesTo(20);
    Click(3, 9);
    EXPECT_EQ(Current(), std::pair(3, 9));
    EXPECT_EQ(grid.TopRow, 20);
    EXPECT_EQ(FirstRowInView(), 1);
}

TEST_F(GridHoldTest, HeldViewStandsStillThoughTheWindowChanges) {
    PointerEnters();
    ThePollingMovesTo(20);
    view->resize(1050, kHeader + kRowsInView * kRowHeight);
    EXPECT_EQ(FirstRowInView(), 1);
}

TEST_F(GridHoldTest, AnotherInstrumentIsShownFromItsTopRow) {
    PointerEnters();
    ThePollingMovesTo(20);
    grid.Clear();
    Look();
    EXPECT_EQ(FirstRowInView(), 20);
}

TEST_F(GridHoldTest, ListsAreNotHeld) {
    form.MSHFlexGrid1[1].SetSize(60, 5);
    GridView* list = Add(1);
    QEnterEvent event({50, 50}, {50, 50}, {50, 50});
    QApplication::sendEvent(list, &event);
    form.MSHFlexGrid1[1].TopRow = 9;
    Look();
    EXPECT_EQ(list->rowAt(0) + 1, 9);
}

// The polling walks on between a look and a paint.
TEST_F(GridHoldTest, OneRowIsMarkedAsTheOneThatIsRead) {
    const auto barred = [this] {
        std::vector<int> rows;
        const QImage image = view->viewport()->grab().toImage();
        for (int row = 1; row <= kRowsInView; ++row) {
            if (image.pixelColor(1, Place(row, 0).y()) == bench.theme.Now().accent) rows.push_back(row);
        }
        return rows;
    };
    form.CurrentRow = 3;
    Look();
    form.CurrentRow = 5;
    EXPECT_THAT(barred(), ::testing::ElementsAre(3));
    Look();
    EXPECT_THAT(barred(), ::testing::ElementsAre(5));
}

TEST_F(GridHoldTest, OneRowHasTheGroundOfTheCurrentOne) {
    const auto grounds = [this] {
        std::vector<int> rows;
        const QImage image = view->viewport()->grab().toImage();
        for (int row = 1; row <= kRowsInView; ++row) {
            const QRect cell = view->visualRect(view->model()->index(row - 1, 8));
            if (image.pixelColor(cell.left() + 4, cell.top() + 4) == bench.theme.Now().row)
                rows.push_back(row);
        }
        return rows;
    };
    grid.Select(3, 9);
    Look();
    grid.Select(6, 9);
    EXPECT_THAT(grounds(), ::testing::ElementsAre(3));
    Look();
    EXPECT_THAT(grounds(), ::testing::ElementsAre(6));
}

class FollowTickTest : public ::testing::Test {
  protected:
    ViewBench bench;
    FollowTick tick{bench.binder, nullptr};
    TickControl& stands = bench.Form().ConSelChange;
};

TEST_F(FollowTickTest, IsTheReverseOfStandingStill) {
    EXPECT_EQ(tick.text().toStdString(), "跟随");
    EXPECT_TRUE(tick.isChecked());
    stands.Set(true);
    bench.binder.Look();
    EXPECT_FALSE(tick.isChecked());
    tick.click();
    EXPECT_FALSE(stands.Value());
    EXPECT_TRUE(tick.isChecked());
    tick.click();
    EXPECT_TRUE(stands.Value());
}

TEST_F(FollowTickTest, SaysWhyTheGridIsHeld) {
    HoldReason reason = HoldReason::None;
    tick.AskForReason([&reason] { return reason; });
    const auto told = [&](HoldReason now) {
        reason = now;
        bench.binder.Look();
        EXPECT_EQ(tick.accessibleDescription(), tick.toolTip());
        return tick.toolTip().toStdString();
    };
    EXPECT_EQ(told(HoldReason::Pointer), "指针在表内，暂不跟随");
    EXPECT_EQ(told(HoldReason::Editing), "正在修改，暂不跟随");
    EXPECT_EQ(told(HoldReason::Scrolled), "刚滚动过，暂不跟随");
    EXPECT_EQ(told(HoldReason::None), "表格跟随正在读取的参数");
}

}  // namespace
}  // namespace commtest::testing
