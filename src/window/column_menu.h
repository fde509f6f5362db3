#pragma once

#include <QMenu>
#include <functional>

#include "window/column_widths.h"

namespace commtest {

// What a heading offers: to hide its column, to show and hide the others, to lay them all out as the
// catalogue has them. `changed` runs behind a choice. The menu goes when it is closed.
QMenu* MakeColumnMenu(const Grid& grid, int index, int col, ColumnWidths& widths,
                      const std::function<void()>& changed, QWidget* parent);

}  // namespace commtest
