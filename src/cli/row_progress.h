#pragma once

#include "catalogue/table_copy.h"
#include "cli/console.h"

namespace commtest {

// Shows the table under way and its rows in the live line, now and then.
RowProgress LiveRows(Console& console);

}  // namespace commtest
