#pragma once

#include <optional>

#include "runtime/text.h"

namespace commtest {

class Grid;

// Scales a value text by a decimals parameter: column 5 of the row is a hexadecimal address, and column 8
// of the first row there whose attribute is not "S" holds the decimals. Divided on reading (1234 becomes
// 12.34), multiplied on writing (12.34 becomes 1234.00). Without such a row, or with decimals outside -1 to 5
// (both excluded), the value stays; so does one that is no number. A leading point gets its zero all the
// same. The grid's redraw is on afterwards, unless the value is empty. Passes over run-time errors.
void ScaleByDecimalRow(Grid& grid, int row, Text& value, bool divide);

// The same for the rows of one reply, which mostly name the same parameter, one behind the other: its row is
// looked for once. Addresses and attributes stay meanwhile, values need not.
class DecimalRows {
  public:
    explicit DecimalRows(const Grid& grid) : grid_(grid) {}

    Text Scaled(int row, Text value, bool divide);

  private:
    Text ReferencedDecimals(int row);

    const Grid& grid_;
    Text address_;
    std::optional<int> reference_;  // of that address
};

// The same without a touch of the grid.
Text WithDecimalRow(const Grid& grid, int row, Text value, bool divide);

}  // namespace commtest
