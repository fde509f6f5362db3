#pragma once

namespace commtest {

class MainForm;

// Walks the data of the reply in ReplyText over the grid's rows: raw text, value, value with decimals.
// Dynamic data start at row 6, static data at FirstDataRow unless they continue a part, a single read at
// CurrentRow. A run ends at the first row whose attribute begins with another letter; rows of attribute "S"
// travel along. Errors: 13 for a row whose length is no number, 5 for a reply too short for its fill.
void DecodeTqReplyRows(MainForm& form);

// Colours column 6 of CurrentRow by whether columns 6 and 7 differ, and selects that cell.
void MarkReadMismatch(MainForm& form);

}  // namespace commtest
