#include "catalogue/list_binding.h"

#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

Text WithoutTable(const Text& column) {
    const auto dot = column.rfind(u'.');
    return dot == Text::npos ? column : column.substr(dot + 1);
}

Text NumberOfRow(int row) {
    Text number = WholeText(row);
    if (Len(number) < 3) FitTextWidth(number, 3);
    return number;
}

}  // namespace

// Q179: an empty result leaves the grid.
void BindToGrid(Grid& grid, const StoreRows& result) {
    if (result.rows.empty()) return;
    const auto rows = result.rows.size();
    const auto columns = result.columns.size();
    grid.Redraw = false;
    grid.SetSize(static_cast<int>(rows) + 1, static_cast<int>(columns) + 1);
    grid.SetCell(0, 0, u"序号");
    for (std::size_t c = 0; c < columns; ++c) {
        grid.SetCell(0, static_cast<int>(c) + 1, WithoutTable(result.columns[c]));
    }
    for (std::size_t r = 0; r < rows; ++r) {
        const int row = static_cast<int>(r) + 1;
        grid.SetCell(row, 0, NumberOfRow(row));
        for (std::size_t c = 0; c < columns; ++c) {
            const StoreValue& value = result.rows[r][c];
            grid.SetCell(row, static_cast<int>(c) + 1, value ? TextView(*value) : TextView());
        }
    }
    grid.Redraw = true;
}

}  // namespace commtest
