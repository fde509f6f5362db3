#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QTest>

#include "window/grid_view_bench.h"

namespace commtest::testing {
using namespace Qt::StringLiterals;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The columns of the parameter grid that the user hides and puts back.
class GridColumnsTest : public GridViewTest {
  protected:
    QMenu* AskMenu(int col) {
        grid.Select(2, col);
        Look();
        Key(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }

    // "-" a separator, "(...)" one that cannot be chosen, "+..." a ticked one.
    static std::vector<std::string> EntriesOf(QMenu* menu) {
        std::vector<std::string> entries;
        for (const QAction* action : menu->actions()) {
            const std::string caption = action->text().toStdString();
            if (action->isSeparator()) {
                entries.push_back("-");
            } else if (!action->isEnabled()) {
                entries.push_back("(" + caption + ")");
            } else {
                entries.push_back((action->isChecked() ? "+" : "") + caption);
            }
        }
        menu->close();
        return entries;
    }

    void Choose(int col, const QString& caption) {
        QMenu* menu = AskMenu(col);
        for (QAction* action : menu->actions()) {
            if (action->text() == caption) action->trigger();
        }
        menu->close();
    }

    std::vector<int> Hidden(GridView& of) {
        std::vector<int> columns;
        for (int col = 0; col < 11; ++col) {
            if (of.isColumnHidden(col)) columns.push_back(col);
        }
        return columns;
    }
    std::vector<int> Hidden() { return Hidden(*view); }
};

TEST_F(GridColumnsTest, MenuOfAHeadingOffersTheColumns) {
    EXPECT_THAT(EntriesOf(AskMenu(6)),
                ElementsAre("隐藏此列", "-", "+地址", "+长度", "+属性", "+小数点", "+RE 读值", "+RR/RD 读值",
                            "+计算值", "+小数点修正值", "-", "恢复列宽"));
    for (const int col : {0, 1, 10}) EXPECT_EQ(EntriesOf(AskMenu(col)).front(), "(隐藏此列)") << col;
}

TEST_F(GridColumnsTest, ListsOfferTheirWidthsAndTheirOrder) {
    form.MSHFlexGrid1[1].SetSize(5, 5);
    view = Add(1);
    view->setFocus();
    Key(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(EntriesOf(qobject_cast<QMenu*>(QApplication::activePopupWidget())),
                ElementsAre("恢复列宽", "按此列排序"));
}

TEST_F(GridColumnsTest, ColumnIsHiddenAndPutBack) {
    Choose(6, u"隐藏此列"_s);
    EXPECT_THAT(Hidden(), ElementsAre(6));
    EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
    EXPECT_THAT(EntriesOf(AskMenu(7)), ::testing::Contains("RE 读值"));
    Choose(7, u"属性"_s);
    EXPECT_THAT(Hidden(), ElementsAre(4, 6));
    Choose(7, u"RE 读值"_s);
    EXPECT_THAT(Hidden(), ElementsAre(4));
}

TEST_F(GridColumnsTest, KeysPassOverAHiddenColumnAndACopyLacksIt) {
    Choose(3, u"隐藏此列"_s);
    grid.Select(2, 2);
    Look();
    Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Current(), std::pair(2, 4));
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "0123\tRW");
}

TEST_F(GridColumnsTest, WidthsAndHiddenColumnsAreRestoredTogether) {
    view->horizontalHeader()->resizeSection(1, 320);
    Choose(6, u"隐藏此列"_s);
    Choose(6, u"恢复列宽"_s);
    EXPECT_THAT(Hidden(), IsEmpty());
    EXPECT_NE(view->columnWidth(1), 320);
    EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
}

TEST_F(GridColumnsTest, HiddenColumnsAreRememberedWithTheWidths) {
    Choose(6, u"隐藏此列"_s);
    GridView* later = Add(0);
    EXPECT_THAT(Hidden(*later), IsEmpty());
    later->RestoreWidths(view->SaveWidths());
    EXPECT_THAT(Hidden(*later), ElementsAre(6));
}

TEST_F(GridColumnsTest, WidthOfZeroInTheCatalogueHidesAColumnUntilItIsPutBack) {
    for (const int col : {3, 10}) {
        grid.Column(col).isLaidOut = true;
        grid.Column(col).width = 0;
    }
    GridView* later = Add(0);
    EXPECT_THAT(Hidden(*later), ElementsAre(3));  // the new value always stands
    later->setFocus();
    view = later;
    Choose(6, u"长度"_s);
    EXPECT_THAT(Hidden(), IsEmpty());
    EXPECT_GE(view->columnWidth(3), 48);
    Choose(6, u"恢复列宽"_s);
    EXPECT_THAT(Hidden(), ElementsAre(3));
}

TEST_F(GridColumnsTest, RowWhoseNumberWasEmptiedShowsItAllTheSame) {
    grid.SetCell(7, 0, {});
    EXPECT_EQ(Shown(7, 0), "007 ");
    EXPECT_EQ(ToUtf8(grid.Cell(7, 0)), "");
    form.MSHFlexGrid1[1].SetSize(5, 5);
    EXPECT_EQ(Add(1)->model()->index(0, 0).data().toString().toStdString(), "");
}

// Rows of the view in which the column has ink, of the first four.
class GridMergeTest : public GridColumnsTest {
  protected:
    std::vector<int> Inked(int col) {
        std::vector<int> rows;
        const QImage image = view->viewport()->grab().toImage();
        for (int row = FirstRowInView(); row < FirstRowInView() + 4; ++row) {
            const QRect cell = view->visualRect(view->model()->index(row - 1, col));
            bool has = false;
            for (int x = cell.left() + 8; x < cell.right() - 8; ++x)
                has |= image.pixelColor(x, cell.center().y()) == bench.theme.Now().text2;
            if (has) rows.push_back(row);
        }
        return rows;
    }

    GridMergeTest() {
        for (int row = 1; row <= kParameters; ++row) grid.SetCell(row, 3, row == 3 ? u"█████" : u"███");
    }
};

TEST_F(GridMergeTest, EqualNeighboursOfAMergingColumnAreShownOnce) {
    Look();
    EXPECT_THAT(Inked(3), ElementsAre(1, 2, 3, 4));
    grid.Column(3).merge = 1;
    EXPECT_THAT(Inked(3), ElementsAre(1, 3, 4));
    EXPECT_EQ(Shown(2, 3), "███");
}

TEST_F(GridMergeTest, FirstRowInViewHasItsText) {
    grid.Column(3).merge = 1;
    grid.TopRow = 6;
    Look();
    QApplication::processEvents();
    EXPECT_THAT(Inked(3), ElementsAre(6));
}

}  // namespace
}  // namespace commtest::testing
