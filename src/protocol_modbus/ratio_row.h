#pragma once

#include "controls/grid.h"
#include "session/grid_rows.h"

namespace commtest {

// Whether a row holds a ratio: an ASCII instrument carries it as four bytes of which the low one of each word
// counts, and takes it in two writes.
inline bool IsRatioRow(const Grid& grid, int row) { return Contains(grid.Cell(row, column::kName), u"变比"); }

}  // namespace commtest
