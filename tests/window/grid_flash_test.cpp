#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProxyStyle>
#include <QTest>

#include "window/grid_view_bench.h"

namespace commtest::testing {
namespace {

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
