#pragma once

#include "runtime/text.h"

namespace commtest {

class Grid;
struct Conversation;

// Scales a value text by the decimals of a grid row and gives it its shown form: divided on reading (1234
// becomes 12.34), multiplied on writing (12.34 becomes 1234.00). Column 5 of the row is first taken as the
// address of a decimals parameter, whose column 8 then holds the decimals; without one it holds them itself.
// Five decimals or more leave the value. The grid's redraw is on afterwards. Errors: 13 for a value or a
// reference that is no number, 9 for negative decimals, 6 beyond a double.
void ApplyDecimalPoint(Grid& grid, int row, Text& value, bool divide);

// The same without a touch of the grid.
Text WithDecimalPoint(const Grid& grid, int row, Text value, bool divide);

// The same, but with "0" in column 5 of the row the value stays as it is.
Text InShownDecimals(const Grid& grid, int row, const Text& value, bool divide);

// InShownDecimals of both ways, as rows of a protocol have it: digits of the instrument in the shown form,
// and an entry in the digits of the instrument.
Text DigitsInShownDecimals(const Conversation& talk, int row, const Text& digits);
Text EntryInDigits(const Conversation& talk, int row, const Text& entry);

// The first row at the address that column 5 of `row` names, among those that `mayHold` allows; 0 if there is
// none, or if column 5 is "0".
int RowAtDecimalsAddress(const Grid& grid, int row, bool (*mayHold)(const Grid&, int row));

// The first row at that address, if its name says that it holds decimals; else 0.
int NamedDecimalsRow(const Grid& grid, int row);

}  // namespace commtest
