#include "session/decimal_point.h"

#include <cmath>

#include "controls/grid.h"
#include "numbers/reading_length.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr int kFormats = 5;  // 0 to 4 decimals

// Whether a name says that its row holds decimals.
bool NamesDecimals(const Text& name) { return Contains(name, u"小数点") || Contains(name, u"虚拟"); }

bool AnyRow(const Grid&, int) { return true; }

// The first row at the address in column 5 of `row` that has a value, 0 if there is none.
int ReferenceRow(const Grid& grid, int row) {
    const auto address = HexParse(grid.Cell(row, column::kDecimals));
    for (int r = 1; r < grid.Rows(); ++r) {
        if (grid.Cell(r, column::kValue).empty()) continue;
        if (HexParse(grid.Cell(r, column::kAddress)) == address) return r;
    }
    return 0;
}

Text Scaled(const Text& value, int decimals, bool divide) {
    const double factor = std::pow(10.0, decimals);
    const double number = ToNumber(value);
    return NumberText(Finite(divide ? number / factor : number * factor));
}

// Q87: an entry takes its shown form, too.
Text Formatted(const Text& value, int decimals) {
    if (decimals < 0 || decimals >= kFormats) throw RuntimeError(RuntimeError::kSubscript);
    return decimals == 0 ? NumberText(ToNumber(value)) : FixedText(ToNumber(value), decimals);
}

void ScaleByReference(const Text& decimalsText, Text& value, bool divide) {
    const double wanted = ToNumber(decimalsText);
    if (wanted < kFormats) {
        const int decimals = Whole32(wanted);
        value = Scaled(value, decimals, divide);
        value = Formatted(value, decimals);
    } else {
        value = Scaled(value, 0, divide);
    }
}

void ScaleDirectly(const Text& decimalsText, Text& value, bool divide) {
    const int decimals = HexParse(decimalsText);
    if (decimals >= kFormats) return;  // Q85
    value = Scaled(value, decimals, divide);
    value = Formatted(value, decimals);
}

}  // namespace

int RowAtDecimalsAddress(const Grid& grid, int row, bool (*mayHold)(const Grid&, int row)) {
    const Text& decimals = grid.Cell(row, column::kDecimals);
    if (decimals == u"0") return 0;
    const auto address = HexParse(decimals);
    for (int r = 1; r < grid.Rows(); ++r) {
        if (HexParse(grid.Cell(r, column::kAddress)) == address && mayHold(grid, r)) return r;
    }
    return 0;
}

int NamedDecimalsRow(const Grid& grid, int row) {
    const int found = RowAtDecimalsAddress(grid, row, AnyRow);
    return found > 0 && NamesDecimals(grid.Cell(found, column::kName)) ? found : 0;
}

Text InShownDecimals(const Grid& grid, int row, const Text& value, bool divide) {
    return grid.Cell(row, column::kDecimals) == u"0" ? value : WithDecimalPoint(grid, row, value, divide);
}

Text DigitsInShownDecimals(const Conversation& talk, int row, const Text& digits) {
    return InShownDecimals(talk.ParameterGrid(), row, digits, true);
}

Text EntryInDigits(const Conversation& talk, int row, const Text& entry) {
    return InShownDecimals(talk.ParameterGrid(), row, entry, false);
}

Text WithDecimalPoint(const Grid& grid, int row, Text value, bool divide) {
    if (value.empty()) return value;
    const int reference = ReferenceRow(grid, row);  // Q84: an address before it is a count
    if (reference > 0 && NamesDecimals(grid.Cell(reference, column::kName))) {
        ScaleByReference(grid.Cell(reference, column::kValue), value, divide);
    } else {
        ScaleDirectly(grid.Cell(row, column::kDecimals), value, divide);
    }
    PutZeroBeforePoint(value);
    return value;
}

void ApplyDecimalPoint(Grid& grid, int row, Text& value, bool divide) {
    if (value.empty()) return;
    grid.Redraw = false;
    value = WithDecimalPoint(grid, row, std::move(value), divide);
    grid.Redraw = true;  // Q75: in the middle of a walk, too; Q76: not behind an error
}

}  // namespace commtest
