#pragma once

#include "runtime/text.h"

namespace commtest {

class Grid;

// Scales a value text by the decimals of a grid row and gives it its shown form: divided on reading (1234
// becomes 12.34), multiplied on writing (12.34 becomes 1234.00). Column 5 of the row is first taken as the
// address of a decimals parameter, whose column 8 then holds the decimals; without one it holds them itself.
// Five decimals or more leave the value. The grid's redraw is on afterwards. Errors: 13 for a value or a
// reference that is no number, 9 for negative decimals, 6 beyond a double.
void ApplyDecimalPoint(Grid& grid, int row, Text& value, bool divide);

// The same without a touch of the grid.
Text WithDecimalPoint(const Grid& grid, int row, Text value, bool divide);

// Whether a name says that its row holds decimals.
bool NamesDecimals(const Text& name);

// The first row at the address that column 5 of `row` names, among those that `mayHold` allows; 0 if there is
// none, or if column 5 is "0".
int RowAtDecimalsAddress(const Grid& grid, int row, bool (*mayHold)(const Grid&, int row));

}  // namespace commtest
