#include "window/frozen_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "window/grid_view_bench.h"

namespace commtest::testing {
namespace {

// A view of 700 pixels over columns of 998: number and name take 220 at its left, the new value 120 at its
// right, the scroll bar at the side is hidden.
class FrozenTableTest : public GridViewTest {
  protected:
    static constexpr int kWidth = 700;
    static constexpr int kColumns = 998;

    FrozenTableTest() {
        view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->resize(kWidth, kHeader + kRowsInView * kRowHeight + 12);
        QApplication::processEvents();
    }

    void ScrollTo(int x) { view->horizontalScrollBar()->setValue(x); }
    QRect CellAt(int row, int col) const { return view->visualRect(view->model()->index(row - 1, col)); }
    std::pair<int, int> At(int x, int y) const {
        const QModelIndex cell = view->indexAt({x, y});
        return {cell.row() + 1, cell.column()};
    }
    QPoint HeadingOf(int col) const {
        return {view->Frozen().PlaceOf(col) + view->columnWidth(col) / 2, kHeader / 2};
    }
    QWidget* Headings() { return view->horizontalHeader()->viewport(); }
};

TEST_F(FrozenTableTest, NumberNameAndNewValueStandWhereverTheOthersScroll) {
    ASSERT_EQ(view->viewport()->width(), kWidth);
    ASSERT_EQ(view->horizontalHeader()->length(), kColumns);
    for (const int x : {0, 100, kColumns - kWidth}) {
        ScrollTo(x);
        EXPECT_EQ(CellAt(3, 0), QRect(0, 2 * kRowHeight, 48, kRowHeight)) << x;
        EXPECT_EQ(CellAt(3, 1), QRect(48, 2 * kRowHeight, 172, kRowHeight)) << x;
        EXPECT_EQ(CellAt(3, 10), QRect(580, 2 * kRowHeight, 120, kRowHeight)) << x;
        EXPECT_EQ(CellAt(3, 6).left(), 440 - x) << x;
    }
}

TEST_F(FrozenTableTest, PointerFindsTheCellThatIsSeen) {
    ScrollTo(150);
    EXPECT_EQ(At(10, 50), std::pair(3, 0));
    EXPECT_EQ(At(219, 50), std::pair(3, 1));
    EXPECT_EQ(At(220, 50), std::pair(3, 4));
    EXPECT_EQ(At(579, 50), std::pair(3, 8));
    EXPECT_EQ(At(580, 50), std::pair(3, 10));
    Click(2, 10);
    EXPECT_EQ(Current(), std::pair(2, 10));
    EXPECT_TRUE(form.InputText.Visible());
    EXPECT_EQ(view->horizontalScrollBar()->value(), 150);
}

TEST_F(FrozenTableTest, KeysBringTheirCellOutFromUnderTheFrozenColumns) {
    grid.Select(3, 1);
    Look();
    for (int col = 2; col <= 10; ++col) {
        Key(Qt::Key_Right);
        ASSERT_EQ(Current(), std::pair(3, col));
        EXPECT_GE(CellAt(3, col).left(), col == 10 ? 580 : 220) << col;
        EXPECT_LE(CellAt(3, col).right(), col == 10 ? 699 : 579) << col;
    }
    for (int col = 9; col >= 2; --col) {
        Key(Qt::Key_Left);
        EXPECT_GE(CellAt(3, col).left(), 220) << col;
        EXPECT_LE(CellAt(3, col).right(), 579) << col;
    }
}

TEST_F(FrozenTableTest, KeyIntoAFrozenColumnScrollsNothingAside) {
    ScrollTo(150);
    grid.Select(3, 6);
    Look();
    Key(Qt::Key_Home);
    EXPECT_EQ(Current(), std::pair(3, 0));
    Key(Qt::Key_End);
    EXPECT_EQ(Current(), std::pair(3, 10));
    EXPECT_EQ(view->horizontalScrollBar()->value(), 150);
}

TEST_F(FrozenTableTest, FrozenCellsArePaintedOverTheOthers) {
    for (int col = 0; col < 11; ++col) grid.SetCell(3, col, {});
    grid.SetCell(3, 4, u"████████");
    grid.SetCell(3, 10, u"██");
    Look();
    const auto hasText = [this](int left, int right) {
        const QImage image = view->viewport()->grab().toImage();
        bool has = false;
        for (int x = left; x < right; ++x) {
            const QColor ink = image.pixelColor(x, 2 * kRowHeight + kRowHeight / 2);
            has |= ink == bench.theme.Now().text || ink == bench.theme.Now().text2;
        }
        return has;
    };
    ScrollTo(0);
    EXPECT_TRUE(hasText(328, 380));
    EXPECT_TRUE(hasText(581, 700));
    ScrollTo(200);  // the text of column 4 would stand at 128
    EXPECT_FALSE(hasText(60, 220));
    EXPECT_TRUE(hasText(581, 700));
}

TEST_F(FrozenTableTest, EdgeIsALineWhereSomethingLiesUnderneath) {
    const auto edges = [this] {
        const QImage image = view->viewport()->grab().toImage();
        const QColor border = bench.theme.Now().border;
        return std::pair(image.pixelColor(219, 30) == border, image.pixelColor(580, 30) == border);
    };
    EXPECT_EQ(edges(), std::pair(false, true));
    ScrollTo(150);
    EXPECT_EQ(edges(), std::pair(true, true));
    ScrollTo(kColumns - kWidth);
    EXPECT_EQ(edges(), std::pair(true, false));
}

TEST_F(FrozenTableTest, NothingIsFrozenWhereAllColumnsFit) {
    view->resize(1100, kHeader + kRowsInView * kRowHeight);
    EXPECT_FALSE(view->Frozen().LieOver());
    EXPECT_EQ(CellAt(3, 10).right(), 1099);
}

TEST_F(FrozenTableTest, NothingIsFrozenWhereNoRoomWouldBeLeft) {
    view->horizontalHeader()->resizeSection(1, 420);
    EXPECT_FALSE(view->Frozen().LieOver());
    ScrollTo(100);
    EXPECT_EQ(CellAt(3, 1).left(), -52);
    EXPECT_EQ(At(10, 50), std::pair(3, 1));
}

TEST_F(FrozenTableTest, ListsHaveNone) {
    Grid& list = form.MSHFlexGrid1[1];
    list.SetSize(5, 11);
    for (int col = 0; col < 11; ++col) list.SetCell(0, col, u"████████████████████");
    GridView* other = Add(1);
    EXPECT_GT(other->horizontalHeader()->length(), other->viewport()->width());
    EXPECT_FALSE(other->Frozen().LieOver());
}

TEST_F(FrozenTableTest, HeadingIsResizedWhereItIsSeen) {
    ScrollTo(150);
    const auto drag = [this](int from, int to) {
        QTest::mousePress(Headings(), Qt::LeftButton, {}, {from, 10});
        const QPointF place(to, 10);
        QMouseEvent move(QEvent::MouseMove, place, Headings()->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Headings(), &move);
        QTest::mouseRelease(Headings(), Qt::LeftButton, {}, {to, 10});
    };
    drag(219, 239);
    EXPECT_EQ(view->columnWidth(1), 192);
    drag(699, 679);
    EXPECT_EQ(view->columnWidth(10), 100);
    EXPECT_EQ(CellAt(3, 10).right(), 699);
    drag(601, 640);  // the edge over what scrolls underneath
    EXPECT_EQ(view->columnWidth(10), 100);
    EXPECT_EQ(view->columnWidth(9), 116);
}

TEST_F(FrozenTableTest, MenuOfAHeadingIsThatOfTheColumnThatIsSeen) {
    ScrollTo(150);
    QSignalSpy wanted(view->horizontalHeader(), SIGNAL(MenuWanted(int, QPoint)));
    for (const int col : {1, 6, 10}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, HeadingOf(col),
                                Headings()->mapToGlobal(HeadingOf(col)));
        QApplication::sendEvent(Headings(), &event);
        EXPECT_EQ(wanted.takeFirst().at(0).toInt(), col);
        QApplication::activePopupWidget()->close();
    }
}

TEST_F(FrozenTableTest, PictureStandsWhileTheRedrawIsOff) {
    ScrollTo(150);
    grid.Redraw = false;
    Look();
    const QImage picture = view->viewport()->grab().toImage();
    grid.SetCell(2, 10, u"another");
    Look();
    EXPECT_EQ(view->viewport()->grab().toImage(), picture);
}

}  // namespace
}  // namespace commtest::testing
