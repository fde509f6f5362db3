#pragma once

#include "controls/grid.h"
#include "host/store.h"

namespace commtest {

// Shows the result of a query in a grid: column 0 numbers the rows, the result's columns follow, headed by
// their names. An empty result leaves the grid as it is.
void BindToGrid(Grid& grid, const StoreRows& result);

}  // namespace commtest
