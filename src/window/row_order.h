#pragma once

#include <vector>

#include "controls/grid.h"

namespace commtest {

// In which order the rows of a list are shown: by the texts of one column, or as the grid has them. The grid
// itself is left alone.
struct RowOrder {
    int column = -1;  // -1: as the grid has them
    bool isDescending = false;

    bool IsOn() const { return column >= 0; }

    // A click on a heading: upwards, downwards, and as the grid has them again.
    void Turn(int clicked);

    // The rows of the grid, from 1, in this order. Whole numbers count by their value where nothing else
    // stands in the column; small and capital letters are the same. Rows of the same text keep their order,
    // those without one come last.
    std::vector<int> RowsOf(const Grid& grid) const;
};

}  // namespace commtest
