#pragma once

#include "cli/console.h"
#include "cli/line_session.h"

namespace commtest {

// Writes a value into a row of the parameter grid by the user's own way: a click on the cell, the entry,
// Enter. Before it the row's decimals are read, if another row holds them, because the entry is scaled by
// them; behind it the row is read back and compared as a number. Rows that cannot be read back are left at
// the instrument's word. Tells the result; anything else is a Problem.
void WriteParameter(LineSession& line, Console& console, int row, const Text& value);

}  // namespace commtest
