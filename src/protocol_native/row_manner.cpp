#include "protocol_native/row_manner.h"

#include <algorithm>

#include "session/conversation.h"
#include "session/decimal_point.h"

namespace commtest {

namespace {

// Row 0 holds the headings.
std::int16_t FirstRow(const Conversation& talk) { return std::max<std::int16_t>(talk.FirstDataRow, 1); }

Unreadable WhyUnreadable(const Conversation& talk, int row) {
    const Grid& grid = talk.ParameterGrid();
    if (grid.Cell(row, column::kAddress) == kCommandAddress) return Unreadable::Command;
    if (row < talk.FirstDataRow) return Unreadable::BeforeFirstRow;
    const Text& attribute = grid.Cell(row, column::kAttribute);
    const bool isRead = Contains(attribute, u"R") || Contains(attribute, u"S");
    return isRead ? Unreadable::No : Unreadable::NoReadAttribute;
}

bool AnyRow(const Grid&, int) { return true; }

int DecimalsRow(const Conversation& talk, int row) {
    const Grid& grid = talk.ParameterGrid();
    const int found = RowAtDecimalsAddress(grid, row, AnyRow);
    return found > 0 && NamesDecimals(grid.Cell(found, column::kName)) ? found : 0;
}

}  // namespace

const RowManner kNativeRowManner = {FirstRow, WhyUnreadable, DecimalsRow};

}  // namespace commtest
