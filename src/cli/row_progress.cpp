#include "cli/row_progress.h"

#include "runtime/number.h"

namespace commtest {

RowProgress LiveRows(Console& console) {
    return [&console](const Text& table, int rows) {
        constexpr int kRowsALook = 500;
        if (rows % kRowsALook == 0) console.ShowLive(table + u" " + WholeText(rows));
    };
}

}  // namespace commtest
