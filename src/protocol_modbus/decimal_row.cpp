#include "protocol_modbus/decimal_row.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "controls/grid.h"
#include "numbers/reading_length.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

// The row at that address which holds decimals, 0 if there is none.
int ReferencedRow(const Grid& grid, const Text& addressText) {
    const auto address = HexParse(addressText);
    for (int r = 1; r < grid.Rows(); ++r) {
        if (HexParse(grid.Cell(r, column::kAddress)) != address) continue;
        if (grid.Cell(r, column::kAttribute) != u"S") return r;
    }
    return 0;  // Q84: it is never the count itself
}

std::optional<double> UsableDecimals(const Text& text) {
    double decimals = -1;
    PassOverError([&] { decimals = ToNumber(text); });
    if (decimals > -1 && decimals < 5) return decimals;
    return std::nullopt;
}

double FactorOf(double decimals) {
    constexpr std::array<double, 5> kFactors = {1, 10, 100, 1000, 10000};
    for (std::size_t whole = 0; whole < kFactors.size(); ++whole) {
        if (decimals == static_cast<double>(whole)) return kFactors[whole];
    }
    return std::pow(10.0, decimals);
}

void Scale(Text& value, double decimals, bool divide) {
    const double factor = FactorOf(decimals);
    const double number = ToNumber(value);
    value = NumberText(Finite(divide ? number / factor : number * factor));
}

// Q86: decimals may be a fraction, of which the shown digits are the rounding.
void ShowDecimals(Text& value, double decimals) {
    const int digits = Whole32(decimals);
    if (digits > 0) value = FixedText(ToNumber(value), digits);
}

// A whole number as its shortest text, of so many digits that a division is exact: the point stands in them.
bool IsPlainWhole(TextView digits) {
    constexpr std::size_t kMostDigits = 15;
    const bool isShortest = !digits.empty() && digits.front() != u'0' && digits.size() <= kMostDigits;
    return isShortest &&
           std::all_of(digits.begin(), digits.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

bool PutPointIntoWhole(Text& value, TextView decimalsText) {
    if (decimalsText.size() != 1 || decimalsText.front() < u'0' || decimalsText.front() > u'4') return false;
    const std::size_t sign = value.starts_with(u'-') ? 1 : 0;
    if (!IsPlainWhole(TextView(value).substr(sign))) return false;
    const auto decimals = static_cast<std::size_t>(decimalsText.front() - u'0');
    if (decimals == 0) return true;
    const std::size_t wanted = sign + decimals + 1;
    if (value.size() < wanted) value.insert(sign, wanted - value.size(), u'0');
    value.insert(value.size() - decimals, 1, u'.');
    return true;
}

void ScaleByText(Text& value, const Text& decimalsText, bool divide) {
    if (divide && PutPointIntoWhole(value, decimalsText)) return;
    if (const auto decimals = UsableDecimals(decimalsText)) {
        PassOverErrors([&] { Scale(value, *decimals, divide); }, [&] { ShowDecimals(value, *decimals); });
    }
    PutZeroBeforePoint(value);
}

}  // namespace

Text DecimalRows::ReferencedDecimals(int row) {
    const Text& address = grid_.Cell(row, column::kDecimals);
    if (!reference_ || address != address_) {
        reference_ = ReferencedRow(grid_, address);
        address_ = address;
    }
    return *reference_ > 0 ? grid_.Cell(*reference_, column::kValue) : Text();
}

Text DecimalRows::Scaled(int row, Text value, bool divide) {
    if (value.empty()) return value;
    Text decimals;
    PassOverError([&] { decimals = ReferencedDecimals(row); });
    ScaleByText(value, decimals, divide);
    return value;
}

Text WithDecimalRow(const Grid& grid, int row, Text value, bool divide) {
    return DecimalRows(grid).Scaled(row, std::move(value), divide);
}

void ScaleByDecimalRow(Grid& grid, int row, Text& value, bool divide) {
    if (value.empty()) return;
    grid.Redraw = false;
    value = WithDecimalRow(grid, row, std::move(value), divide);
    grid.Redraw = true;
}

}  // namespace commtest
