#pragma once

#include "runtime/hex_text.h"

namespace commtest {

struct Conversation;

// Walks the data of a reply over the grid's rows: raw text, value, value with decimals.
// Dynamic data start at row 6, static data at FirstDataRow unless they continue a part, a single read at
// CurrentRow. A run ends at the first row whose attribute begins with another letter; rows of attribute "S"
// travel along. Errors: 13 for a row whose length is no number, 5 for a reply too short for its fill.
void DecodeTqReplyRows(Conversation& talk, const HexText& reply);

// Colours column 6 of CurrentRow by whether columns 6 and 7 differ, light red or the window's background, and
// selects that cell.
void MarkReadMismatch(Conversation& talk);

}  // namespace commtest
