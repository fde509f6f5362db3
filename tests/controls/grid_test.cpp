#include "controls/grid.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

// Each cell holds its own place, "row,column".
Grid GridOf(int rows, int cols) {
    Grid grid;
    grid.SetSize(rows, cols);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            grid.SetCell(row, col, FromUtf8(std::to_string(row) + "," + std::to_string(col)));
        }
    }
    return grid;
}

std::string CellOf(const Grid& grid, int row, int col) { return ToUtf8(grid.Cell(row, col)); }

TEST(Grid, IsEmptyAtFirst) {
    const Grid grid;
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_TRUE(grid.Redraw);
}

TEST(Grid, GrowingKeepsTheCellsAndAddsEmptyOnes) {
    Grid grid = GridOf(2, 3);
    grid.SetSize(3, 4);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Cols(), 4);
    EXPECT_EQ(CellOf(grid, 1, 2), "1,2");
    EXPECT_EQ(CellOf(grid, 0, 1), "0,1");
    EXPECT_EQ(CellOf(grid, 1, 3), "");
    EXPECT_EQ(CellOf(grid, 2, 0), "");
}

TEST(Grid, ShrinkingLosesTheCellsThatFallAway) {
    Grid grid = GridOf(3, 3);
    grid.SetSize(2, 2);
    grid.SetSize(3, 3);
    EXPECT_EQ(CellOf(grid, 1, 1), "1,1");
    EXPECT_EQ(CellOf(grid, 1, 2), "");
    EXPECT_EQ(CellOf(grid, 2, 1), "");
}

TEST(Grid, RowsAloneGrowAndShrink) {
    Grid grid = GridOf(3, 2);
    grid.SetRows(2);
    grid.SetRows(4);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(CellOf(grid, 1, 1), "1,1");
    EXPECT_EQ(CellOf(grid, 2, 0), "");
    EXPECT_EQ(CellOf(grid, 3, 1), "");
}

TEST(Grid, CurrentCellStaysInsideWhenTheGridShrinks) {
    Grid grid = GridOf(5, 5);
    grid.Select(4, 3);
    grid.SetSize(2, 2);
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.Col, 1);
    grid.SetSize(0, 0);
    EXPECT_EQ(grid.Row, 0);
    EXPECT_EQ(grid.Col, 0);
}

TEST(Grid, CellOutsideRaisesError9) {
    Grid grid = GridOf(2, 3);
    const std::pair<int, int> outside[] = {{2, 0}, {0, 3}, {-1, 0}, {0, -1}};
    for (const auto& [row, col] : outside) {
        const int r = row;
        const int c = col;
        EXPECT_EQ(ErrorOf([&] { (void)grid.Cell(r, c); }), 9) << r << ',' << c;
        EXPECT_EQ(ErrorOf([&] { grid.SetCell(r, c, u"x"); }), 9) << r << ',' << c;
        EXPECT_EQ(ErrorOf([&] { grid.SetCellColour(r, c, kLightRed); }), 9) << r << ',' << c;
        EXPECT_EQ(ErrorOf([&] { grid.Select(r, c); }), 9) << r << ',' << c;
    }
}

TEST(Grid, FailedSelectionLeavesTheCurrentCell) {
    Grid grid = GridOf(2, 3);
    grid.Select(1, 2);
    EXPECT_EQ(ErrorOf([&] { grid.Select(5, 0); }), 9);
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.Col, 2);
}

TEST(Grid, ClearEmptiesTheCellsAndKeepsTheSize) {
    Grid grid = GridOf(2, 2);
    grid.SetCellColour(1, 1, kLightRed);
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(CellOf(grid, 1, 1), "");
    EXPECT_EQ(grid.CellColour(1, 1), kWindowBackground);
}

TEST(Grid, BackgroundOfTheWindowIsAColourAsAnyOther) {
    Grid grid = GridOf(2, 2);
    grid.SetCellColour(1, 0, kLightRed);
    grid.SetCellColour(1, 1, kWindowBackground);
    EXPECT_EQ(grid.Colours().size(), 2U);
    EXPECT_EQ(grid.CellColour(1, 0), 0xC0C0FFU);
    EXPECT_EQ(grid.GivenColour(1, 1), 0x80000005U);
    grid.SetCellColour(1, 0, kWindowBackground);
    EXPECT_EQ(grid.Colours().size(), 2U);
    EXPECT_EQ(grid.Colours().at({1, 0}), 0x80000005U);
}

TEST(Grid, CellThatWasGivenNoColourShowsTheBackgroundOfTheWindow) {
    Grid grid = GridOf(2, 2);
    EXPECT_EQ(grid.GivenColour(1, 0), std::nullopt);
    EXPECT_EQ(grid.CellColour(1, 0), 0x80000005U);
    grid.SetCellColour(1, 0, kWindowBackground);
    grid.Clear();
    EXPECT_EQ(grid.GivenColour(1, 0), std::nullopt);
}

TEST(Grid, ColoursOfCellsThatFallAwayAreLost) {
    Grid grid = GridOf(3, 3);
    grid.SetCellColour(2, 0, kLightRed);
    grid.SetCellColour(0, 2, kLightRed);
    grid.SetCellColour(1, 1, kLightRed);
    grid.SetSize(2, 2);
    grid.SetSize(3, 3);
    EXPECT_EQ(grid.Colours().size(), 1U);
    EXPECT_EQ(grid.CellColour(1, 1), kLightRed);
}

TEST(Grid, ColumnsHaveTheirOwnSettingsAndError9Outside) {
    Grid grid = GridOf(2, 3);
    grid.Column(2).width = 1200;
    EXPECT_EQ(grid.Column(2).width, 1200);
    EXPECT_EQ(grid.Column(0).width, 0);
    EXPECT_EQ(ErrorOf([&] { grid.Column(3); }), 9);
    EXPECT_EQ(ErrorOf([&] { grid.Column(-1); }), 9);
}

TEST(Grid, GenerationMovesOnWithCellsColoursAndSize) {
    Grid grid = GridOf(2, 2);
    auto before = grid.Generation();
    const auto moves = [&](auto&& change) {
        change();
        return std::exchange(before, grid.Generation()) != grid.Generation();
    };
    EXPECT_TRUE(moves([&] { grid.SetCell(0, 0, u"x"); }));
    EXPECT_TRUE(moves([&] { grid.SetCellColour(0, 0, kLightRed); }));
    EXPECT_TRUE(moves([&] { grid.SetRows(5); }));
    EXPECT_TRUE(moves([&] { grid.Clear(); }));
    EXPECT_FALSE(moves([&] { grid.SetRows(5); }));
}

TEST(Grid, EpochMovesOnWhenItIsEmptiedOrHasAnotherSize) {
    Grid grid = GridOf(2, 2);
    auto before = grid.Epoch();
    const auto moves = [&](auto&& change) {
        change();
        return std::exchange(before, grid.Epoch()) != grid.Epoch();
    };
    EXPECT_TRUE(moves([&] { grid.Clear(); }));
    EXPECT_TRUE(moves([&] { grid.Clear(); }));
    EXPECT_TRUE(moves([&] { grid.SetRows(5); }));
    EXPECT_TRUE(moves([&] { grid.SetSize(5, 3); }));
    EXPECT_TRUE(moves([&] { grid.SetSize(4, 3); }));
    EXPECT_FALSE(moves([&] { grid.SetSize(4, 3); }));
    EXPECT_FALSE(moves([&] { grid.SetRows(4); }));
    EXPECT_FALSE(moves([&] { grid.SetCell(0, 0, u"x"); }));
    EXPECT_FALSE(moves([&] { grid.SetCellColour(0, 0, kLightRed); }));
    EXPECT_FALSE(moves([&] { grid.Select(1, 1); }));
}

}  // namespace
}  // namespace commtest
