#include "session/grid_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::FormBench;

class ParameterGridLayout : public ::testing::Test {
  protected:
    std::string Cell(int row, int col) const { return ToUtf8(grid.Cell(row, col)); }

    FormBench bench;
    MainForm& form = bench.form;
    Grid& grid = form.ParameterGrid();
};

TEST_F(ParameterGridLayout, HeadingsNameTheColumns) {
    SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
    const char* headings[] = {"序号",    "参数名称",   "地址",   "长度",         "属性",  "小数点",
                              "RE 读值", "RR/RD 读值", "计算值", "小数点修正值", "修改值"};
    for (int col = 0; col < 11; ++col) EXPECT_EQ(Cell(0, col), headings[col]);
}

TEST_F(ParameterGridLayout, RowsAreNumberedWithThreeDigitsAndABlank) {
    grid.SetRows(1001);
    SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
    EXPECT_EQ(Cell(1, 0), "001 ");
    EXPECT_EQ(Cell(10, 0), "010 ");
    EXPECT_EQ(Cell(999, 0), "999 ");
    EXPECT_EQ(Cell(1000, 0), "1000 ");
}

struct Size {
    int before;
    int rows;
    int nameWidth;
};

TEST_F(ParameterGridLayout, GridOfFewerThan14RowsGetsThirteenAndAWideNameColumn) {
    for (const Size& size : {Size{1, 13, 3450}, Size{12, 13, 3450}, Size{13, 13, 3450}, Size{14, 14, 3200},
                             Size{15, 15, 3200}, Size{200, 200, 3200}}) {
        grid.SetRows(size.before);
        SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
        EXPECT_EQ(grid.Rows(), size.rows) << size.before;
        EXPECT_EQ(grid.Column(1).width, size.nameWidth) << size.before;
        EXPECT_EQ(grid.Column(0).width, 530);
    }
}

TEST_F(ParameterGridLayout, CurrentCellIsTheFirstAndRedrawIsOn) {
    grid.Select(3, 4);
    grid.Redraw = false;
    SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
    EXPECT_EQ(grid.Row, 0);
    EXPECT_EQ(grid.Col, 0);
    EXPECT_TRUE(grid.Redraw);
}

TEST_F(ParameterGridLayout, FirstDataRowIsTheFirstRowThatIsExactlyReadableAndWritable) {
    const TextView attributes[] = {u"R", u"RWS", u" RW", u"rw", u"W", u"RW", u"RW"};
    for (int row = 1; row <= 7; ++row) grid.SetCell(row, 4, Text(attributes[row - 1]));
    SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
    EXPECT_EQ(form.FirstDataRow, 6);
}

TEST_F(ParameterGridLayout, WithoutSuchARowFirstDataRowStaysAsItWas) {
    form.FirstDataRow = 9;
    grid.SetCell(1, 4, u"RWD");
    SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
    EXPECT_EQ(form.FirstDataRow, 9);
}

TEST_F(ParameterGridLayout, LastRowIsTheNumberOfRowsMinusOne) {
    grid.SetRows(40);
    EXPECT_EQ(LastRow(grid), 39);
}

struct Scroll {
    int rows;
    int topRow;
    std::int16_t currentRow;
    int newTopRow;
};

// A window of fourteen rows: TopRow to TopRow + 13.
const Scroll kScrolls[] = {
    {40, 1, 1, 1},    {40, 1, 14, 1}, {40, 1, 15, 14}, {40, 10, 23, 10}, {40, 10, 24, 23},
    {40, 10, 10, 10}, {40, 10, 9, 8}, {40, 10, 2, 1},  {40, 1, 26, 25},  {40, 1, 27, 26},
    {40, 1, 39, 26},  {15, 1, 14, 1}, {20, 1, 15, 6},  {40, 30, 28, 26},
};

TEST_F(ParameterGridLayout, WindowOfFourteenRowsFollowsTheRowBeingRead) {
    for (const Scroll& scroll : kScrolls) {
        SCOPED_TRACE(scroll.currentRow);
        grid.SetRows(scroll.rows);
        grid.TopRow = scroll.topRow;
        grid.Redraw = false;
        form.CurrentRow = scroll.currentRow;
        KeepRowInView(form);
        EXPECT_EQ(grid.TopRow, scroll.newTopRow);
        EXPECT_TRUE(grid.Redraw);
    }
}

TEST_F(ParameterGridLayout, WindowRestsWhileTheUserStopsTheScrolling) {
    grid.SetRows(40);
    grid.Redraw = false;
    form.CurrentRow = 30;
    form.ConSelChange.Set(true);
    KeepRowInView(form);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_FALSE(grid.Redraw);
}

using Runs = std::vector<RowSpan>;

TEST(RowSet, RowsThatFollowEachOtherAreOneRun) {
    RowSet rows;
    EXPECT_EQ(rows.Runs(), Runs());
    for (const int row : {6, 7, 8, 12}) rows.Add(row);
    EXPECT_EQ(rows.Runs(), Runs({{6, 8}, {12, 12}}));
    rows.Add(13);
    rows.Add(9);
    EXPECT_EQ(rows.Runs(), Runs({{6, 8}, {12, 13}, {9, 9}}));
}

TEST(RowSet, HoldsItsRowsAndNoneBetweenThem) {
    RowSet rows;
    EXPECT_FALSE(rows.Holds(0));
    for (const int row : {6, 7, 12}) rows.Add(row);
    for (const int row : {6, 7, 12}) EXPECT_TRUE(rows.Holds(row)) << row;
    for (const int row : {0, 5, 8, 11, 13}) EXPECT_FALSE(rows.Holds(row)) << row;
}

TEST(ParameterGridOfASession, WindowFollowsTheReadsRowByRow) {
    testing::BenchSession bench;
    std::vector<testing::TestParameter> parameters;
    for (int i = 0; i < 20; ++i) parameters.push_back({u"参数", u"0100", u"2", u"RW", u"0"});
    bench.Add(u"仪表丙", testing::kNativeProtocol, u"1101", parameters);
    bench.Choose(testing::kNativeProtocol, u"仪表丙");
    bench.Form().CommandCode = 50;
    bench.Form().CurrentRow = 16;
    bench.Press(4);
    bench.line.RunUntil(300);
    EXPECT_EQ(bench.Form().ParameterGrid().TopRow, 7);
}

}  // namespace
}  // namespace commtest
