#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// Scales a value text by the decimals of a grid row and gives it its shown form: divided on reading (1234
// becomes 12.34), multiplied on writing (12.34 becomes 1234.00). Column 5 of the row is first taken as the
// address of a decimals parameter, whose column 8 then holds the decimals; without one it holds them itself.
// Five decimals or more leave the value. The grid's redraw is on afterwards. Errors: 13 for a value or a
// reference that is no number, 9 for negative decimals, 6 beyond a double.
void ApplyDecimalPoint(MainForm& form, int row, Text& value, bool divide);

}  // namespace commtest
