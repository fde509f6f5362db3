#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "commands/operation_menus.h"
#include "runtime/number.h"
#include "window/filter_box.h"
#include "window/grid_view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The field over the parameters: 40 of them, number 5 is the only one without "W".
class GridFilterTest : public GridViewTest {
  protected:
    static constexpr int kWidth = 180;
    FilterBox box{bench.theme, kWidth, &window};

    GridFilterTest() {
        box.setGeometry(0, 500, kWidth, 28);
        box.show();
        box.Serve(view);
        for (int row = 11; row <= 14; ++row) grid.SetCell(row, 1, u"AL报警值" + WholeText(row));
        Look();
    }

    void Type(const QString& words) {
        box.Field().setFocus();
        box.Field().selectAll();
        box.Field().insert(words);
    }
    std::vector<int> RowsShown() const {
        std::vector<int> rows;
        for (int row = 1; row < grid.Rows(); ++row) {
            if (!view->isRowHidden(row - 1)) rows.push_back(row);
        }
        return rows;
    }
    std::string Hits() const { return box.findChild<QLabel*>()->text().toStdString(); }
    QWidget* Empty() const { return FindButton(*view, u"清除筛选"_s)->parentWidget(); }
};

TEST_F(GridFilterTest, RowsThatHoldTheWordsInNameAddressOrAttributeAreShown) {
    EXPECT_EQ(RowsShown().size(), 40u);
    Type(u"报警"_s);
    EXPECT_THAT(RowsShown(), ElementsAre(11, 12, 13, 14));
    EXPECT_EQ(FirstRowInView(), 11);
    EXPECT_EQ(Hits(), "4 / 40");
    Type(u"al报警值12"_s);
    EXPECT_THAT(RowsShown(), ElementsAre(12));
    grid.SetCell(7, 2, u"0ABC");
    Type(u"abc"_s);
    EXPECT_THAT(RowsShown(), ElementsAre(7));
    grid.SetCell(9, 4, u"D");
    Type(u"d"_s);
    EXPECT_THAT(RowsShown(), ElementsAre(9));
    grid.SetCell(10, 8, u"D");
    Look();
    EXPECT_THAT(RowsShown(), ElementsAre(9));
}

TEST_F(GridFilterTest, EscapeEmptiesAndTheViewGoesBack) {
    grid.TopRow = 20;
    Look();
    Type(u"报警"_s);
    QTest::keyClick(&box.Field(), Qt::Key_Escape);
    EXPECT_EQ(box.Field().text().toStdString(), "");
    EXPECT_EQ(RowsShown().size(), 40u);
    EXPECT_EQ(Hits(), "");
    EXPECT_EQ(FirstRowInView(), 20);
    EXPECT_EQ(grid.TopRow, 20);
}

TEST_F(GridFilterTest, DownGoesIntoTheRows) {
    Type(u"报警"_s);
    QTest::keyClick(&box.Field(), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), view);
    EXPECT_EQ(Current(), std::pair(11, 1));
    Key(Qt::Key_Down);
    EXPECT_EQ(Current(), std::pair(12, 1));
}

TEST_F(GridFilterTest, NothingFoundIsSaidAndCleared) {
    EXPECT_FALSE(Empty()->isVisible());
    Type(u"报警x"_s);
    EXPECT_TRUE(Empty()->isVisible());
    EXPECT_EQ(Empty()->findChild<QLabel*>()->text().toStdString(), "没有符合“报警x”的参数");
    EXPECT_EQ(Hits(), "0 / 40");
    FindButton(*view, u"清除筛选"_s)->click();
    EXPECT_FALSE(Empty()->isVisible());
    EXPECT_EQ(box.Field().text().toStdString(), "");
    EXPECT_EQ(RowsShown().size(), 40u);
}

TEST_F(GridFilterTest, ClearingAColumnMeansAllRows) {
    for (int row = 1; row <= kParameters; ++row) grid.SetCell(row, 6, u"C800");
    Type(u"报警"_s);
    grid.Select(11, 6);
    ClearCurrentColumn(form);
    for (const int row : {6, 11, 40}) EXPECT_EQ(ToUtf8(grid.Cell(row, 6)), "") << row;
}

TEST_F(GridFilterTest, WheelMovesByTheRowsThatAreShown) {
    view->resize(1100, kHeader + 2 * kRowHeight);
    Type(u"报警"_s);
    const auto turn = [this](int way) {
        const QPointF place(50, 20);
        QWheelEvent event(place, view->viewport()->mapToGlobal(place), {}, {0, way}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view->viewport(), &event);
        return FirstRowInView();
    };
    EXPECT_EQ(turn(-120), 12);
    EXPECT_EQ(turn(-120), 13);
    EXPECT_EQ(turn(120), 12);
    EXPECT_EQ(grid.TopRow, 12);
}

TEST_F(GridFilterTest, CopyLacksTheRowsThatAreHidden) {
    grid.SetCell(20, 1, u"报警终");
    Type(u"报警"_s);
    grid.Select(14, 1);
    Look();
    view->setFocus();
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "AL报警值14\n报警终");
}

TEST_F(GridFilterTest, HitsAreMarkedWhereTheyStand) {
    const auto marked = [this](int row, int col) {
        const QImage image = view->viewport()->grab().toImage();
        const QRect cell = view->visualRect(view->model()->index(row - 1, col));
        int count = 0;
        for (int x = cell.left(); x <= cell.right(); ++x)
            count += image.pixelColor(x, cell.top() + 3) == bench.theme.Now().tint;
        return count;
    };
    EXPECT_EQ(marked(2, 1), 0);
    Type(u"数2"_s);
    EXPECT_GT(marked(2, 1), 5);
    EXPECT_LT(marked(2, 1), 40);
    EXPECT_EQ(marked(2, 2), 0);
}

TEST_F(GridFilterTest, WordsHoldForAnotherInstrument) {
    Type(u"给定"_s);
    EXPECT_THAT(RowsShown(), IsEmpty());
    bench.session.Choose(kNativeProtocol, u"仪表甲");
    Look();
    EXPECT_THAT(RowsShown(), ElementsAre(1));
    EXPECT_EQ(Hits(), "1 / 7");
}

TEST_F(GridFilterTest, EachGridKeepsItsWords) {
    Grid& list = form.MSHFlexGrid1[1];
    list.SetSize(4, 5);
    list.SetCell(2, 3, u"仪表甲");
    GridView* other = Add(1);
    Type(u"报警"_s);
    box.Serve(other);
    EXPECT_EQ(box.Field().text().toStdString(), "");
    Type(u"表乙"_s);
    EXPECT_EQ(FindButton(*other, u"清除筛选"_s)->parentWidget()->findChild<QLabel*>()->text().toStdString(),
              "没有符合“表乙”的仪表");
    box.Serve(view);
    EXPECT_EQ(box.Field().text().toStdString(), "报警");
    EXPECT_EQ(Hits(), "4 / 40");
    box.Serve(nullptr);
    EXPECT_TRUE(box.isHidden());
}

TEST_F(GridFilterTest, LensUnfoldsTheFieldWhereThereIsNoRoom) {
    box.SetFolded(true);
    EXPECT_FALSE(box.Field().isVisible());
    EXPECT_EQ(box.Lens().size(), QSize(28, 28));
    box.Lens().click();
    EXPECT_TRUE(box.Field().hasFocus());
    box.Field().insert(u"报警"_s);
    EXPECT_EQ(RowsShown().size(), 4u);
    view->setFocus();
    EXPECT_FALSE(box.Field().isVisible());
    EXPECT_TRUE(box.Lens().isVisible());
    EXPECT_EQ(RowsShown().size(), 4u);
    box.SetFolded(false);
    EXPECT_TRUE(box.Field().isVisible());
    EXPECT_FALSE(box.Lens().isVisible());
}

TEST_F(GridFilterTest, FieldIsNamed) {
    EXPECT_EQ(box.Field().accessibleName().toStdString(), "筛选");
    EXPECT_EQ(box.Field().placeholderText().toStdString(), "筛选名称、地址、属性");
    EXPECT_EQ(box.Field().size(), QSize(180, 24));
}

// --- Typing into a grid ---

class TypedSearchTest : public GridViewTest {
  protected:
    const int interval_ = QApplication::keyboardInputInterval();

    TypedSearchTest() {
        grid.SetCell(20, 1, u"AL1报警值");
        grid.SetCell(30, 1, u"AL2报警值");
        grid.Select(3, 1);
        Look();
    }
    ~TypedSearchTest() override { QApplication::setKeyboardInputInterval(interval_); }
};

TEST_F(TypedSearchTest, LettersJumpToTheRowThatBeginsSo) {
    QApplication::setKeyboardInputInterval(60000);
    QTest::keyClicks(view, "al2");
    EXPECT_EQ(Current(), std::pair(30, 1));
    EXPECT_EQ(FirstRowInView(), 21);
}

TEST_F(TypedSearchTest, LettersAfterAWhileBeginAnew) {
    QApplication::setKeyboardInputInterval(0);
    QTest::keyClicks(view, "a");
    EXPECT_EQ(Current(), std::pair(20, 1));
    QTest::keyClicks(view, "a");
    EXPECT_EQ(Current(), std::pair(30, 1));
    QTest::keyClicks(view, "a");
    EXPECT_EQ(Current(), std::pair(20, 1));
}

TEST_F(TypedSearchTest, NumbersAndAddressesAreFoundWhereNoNameBeginsSo) {
    QApplication::setKeyboardInputInterval(60000);
    grid.SetCell(9, 2, u"0ABC");
    Look();
    QTest::keyClicks(view, "0a");
    EXPECT_EQ(Current(), std::pair(9, 1));
    QApplication::setKeyboardInputInterval(0);
    view->keyboardSearch(u"017"_s);
    EXPECT_EQ(Current(), std::pair(17, 1));
}

TEST_F(TypedSearchTest, WordThatIsTypedAtOnceIsFound) {
    QInputMethodEvent event;
    event.setCommitString(u"参数2"_s);
    EXPECT_TRUE(view->testAttribute(Qt::WA_InputMethodEnabled));
    QApplication::sendEvent(view, &event);
    EXPECT_EQ(Current(), std::pair(21, 1));
}

TEST_F(TypedSearchTest, WhatNoRowBeginsWithMovesNothing) {
    QTest::keyClicks(view, "xyz");
    EXPECT_EQ(Current(), std::pair(3, 1));
}

}  // namespace
}  // namespace commtest::testing
