#include "protocol_modbus/decimal_row.h"

#include <cmath>
#include <optional>

#include "controls/grid.h"
#include "numbers/reading_length.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

// Column 8 of the referenced row; empty if there is none.
Text ReferencedDecimals(const Grid& grid, int row) {
    const auto address = HexParse(grid.Cell(row, column::kDecimals));
    for (int r = 1; r < grid.Rows(); ++r) {
        if (HexParse(grid.Cell(r, column::kAddress)) != address) continue;
        if (grid.Cell(r, column::kAttribute) != u"S") return grid.Cell(r, column::kValue);
    }
    return {};  // Q84: it is never the count itself
}

std::optional<double> UsableDecimals(const Text& text) {
    double decimals = -1;
    PassOverError([&] { decimals = ToNumber(text); });
    if (decimals > -1 && decimals < 5) return decimals;
    return std::nullopt;
}

void Scale(Text& value, double decimals, bool divide) {
    const double factor = std::pow(10.0, decimals);
    const double number = ToNumber(value);
    value = NumberText(Finite(divide ? number / factor : number * factor));
}

// Q86: decimals may be a fraction, of which the shown digits are the rounding.
void ShowDecimals(Text& value, double decimals) {
    const int digits = Whole32(decimals);
    if (digits > 0) value = FixedText(ToNumber(value), digits);
}

}  // namespace

Text WithDecimalRow(const Grid& grid, int row, Text value, bool divide) {
    if (value.empty()) return value;
    PassOverErrors([&] {
        const auto decimals = UsableDecimals(ReferencedDecimals(grid, row));
        if (!decimals) return;
        PassOverErrors([&] { Scale(value, *decimals, divide); }, [&] { ShowDecimals(value, *decimals); });
    });
    PutZeroBeforePoint(value);
    return value;
}

void ScaleByDecimalRow(Grid& grid, int row, Text& value, bool divide) {
    if (value.empty()) return;
    grid.Redraw = false;
    value = WithDecimalRow(grid, row, std::move(value), divide);
    grid.Redraw = true;
}

}  // namespace commtest
