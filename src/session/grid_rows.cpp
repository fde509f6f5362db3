#include "session/grid_rows.h"

#include <algorithm>
#include <array>

#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "session/conversation.h"

namespace commtest {

namespace {

constexpr int kRowsInView = 14;

constexpr int kNumberWidth = 530;
constexpr int kNameWidth = 3200;
constexpr int kNameWidthOfShortGrid = 3450;

void NumberRows(ParameterRows& rows) {
    Grid& grid = rows.ParameterGrid();
    bool found = false;
    for (int row = 1; row < grid.Rows(); ++row) {
        Text number = WholeText(row);
        if (Len(number) < 3) FitTextWidth(number, 3);
        grid.SetCell(row, column::kNumber, number + u" ");  // Q80
        if (!found && grid.Cell(row, column::kAttribute) == u"RW") {
            rows.FirstDataRow = Whole16(row);
            found = true;
        }
    }
}

}  // namespace

bool RowSet::Holds(int row) const {
    return std::any_of(runs_.begin(), runs_.end(),
                       [&](const RowSpan& run) { return row >= run.first && row <= run.last; });
}

void RowSet::Add(int row) {
    if (runs_.empty() || runs_.back().last + 1 != row) runs_.push_back({row, row});
    runs_.back().last = row;
}

int LastRow(const Grid& grid) { return grid.Rows() - 1; }

void SetUpParameterGrid(ParameterRows& rows, const std::array<TextView, column::kCount>& headings) {
    Grid& grid = rows.ParameterGrid();
    grid.Redraw = false;
    const bool isShort = grid.Rows() < kRowsInView;
    if (isShort) grid.SetRows(kRowsInView - 1);  // Q79
    grid.Column(column::kName).width = isShort ? kNameWidthOfShortGrid : kNameWidth;
    grid.Select(0, 0);
    grid.Column(column::kNumber).width = kNumberWidth;
    NumberRows(rows);
    for (int col = 0; col < column::kCount; ++col) {
        grid.SetCell(0, col, Text(headings[static_cast<std::size_t>(col)]));
    }
    grid.Redraw = true;
}

void KeepRowInView(ParameterRows& rows) {
    if (rows.ConSelChange.Value()) return;
    Grid& grid = rows.ParameterGrid();
    grid.Redraw = false;
    if (rows.CurrentRow >= grid.TopRow + kRowsInView || rows.CurrentRow < grid.TopRow) {
        const int lastTop = grid.Rows() - kRowsInView;
        grid.TopRow = rows.CurrentRow > lastTop ? lastTop : rows.CurrentRow - 1;  // Q81: the row before
    }
    grid.Redraw = true;
}

}  // namespace commtest
