#include "window/row_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RowOrderTest : public ::testing::Test {
  protected:
    std::vector<int> Rows(const std::vector<Text>& texts) {
        grid.SetSize(static_cast<int>(texts.size()) + 1, 2);
        for (std::size_t row = 0; row < texts.size(); ++row)
            grid.SetCell(static_cast<int>(row) + 1, 1, texts[row]);
        return order.RowsOf(grid);
    }

    Grid grid;
    RowOrder order;
};

TEST_F(RowOrderTest, RowsStandAsTheGridHasThemUntilAColumnIsClicked) {
    EXPECT_THAT(Rows({u"b", u"a"}), ElementsAre(1, 2));
    EXPECT_THAT(Rows({}), IsEmpty());
}

TEST_F(RowOrderTest, ClicksOnOneHeadingGoUpwardsDownwardsAndBack) {
    order.Turn(1);
    EXPECT_THAT(Rows({u"b", u"c", u"a"}), ElementsAre(3, 1, 2));
    order.Turn(1);
    EXPECT_THAT(Rows({u"b", u"c", u"a"}), ElementsAre(2, 1, 3));
    order.Turn(1);
    EXPECT_FALSE(order.IsOn());
    EXPECT_THAT(Rows({u"b", u"c", u"a"}), ElementsAre(1, 2, 3));
}

TEST_F(RowOrderTest, ClickOnAnotherHeadingBeginsUpwards) {
    order.Turn(0);
    order.Turn(0);
    order.Turn(1);
    EXPECT_EQ(order.column, 1);
    EXPECT_FALSE(order.isDescending);
}

TEST_F(RowOrderTest, RowsWithoutATextComeLastBothWays) {
    order.Turn(1);
    EXPECT_THAT(Rows({u"", u"b", u"", u"a"}), ElementsAre(4, 2, 1, 3));
    order.Turn(1);
    EXPECT_THAT(Rows({u"", u"b", u"", u"a"}), ElementsAre(2, 4, 1, 3));
}

TEST_F(RowOrderTest, EqualRowsKeepTheirOrderAndTheCaseDoesNotCount) {
    order.Turn(1);
    EXPECT_THAT(Rows({u"B", u"a", u"b", u"A"}), ElementsAre(2, 4, 1, 3));
    order.Turn(1);
    EXPECT_THAT(Rows({u"B", u"a", u"b", u"A"}), ElementsAre(1, 3, 2, 4));
}

TEST_F(RowOrderTest, NumbersCountByTheirValueWhereAllAreNumbers) {
    order.Turn(1);
    EXPECT_THAT(Rows({u"10", u"9", u"", u"100"}), ElementsAre(2, 1, 4, 3));
    EXPECT_THAT(Rows({u"10", u"9", u"A", u"100"}), ElementsAre(1, 4, 2, 3));
}

TEST_F(RowOrderTest, ColumnThatTheGridNoLongerHasOrdersNothing) {
    order.Turn(5);
    EXPECT_THAT(Rows({u"b", u"a"}), ElementsAre(1, 2));
}

}  // namespace
}  // namespace commtest
