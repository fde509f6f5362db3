#pragma once

#include <optional>
#include <vector>

#include "host/spreadsheet.h"
#include "runtime/runtime_error.h"

namespace commtest {

class MainForm;

inline constexpr TextView kSpreadsheetSheet = u"参数表";

// The parameter address table of an instrument, as it goes to a spreadsheet.
struct InstrumentSheet {
    Text instrument;
    Text fileName;  // of the result, without a folder
    std::vector<SheetCell> cells = {};
    std::optional<RuntimeError> failure = {};  // the store's; there are no cells then
};

// "A/B" is written to "A-B参数地址表.xls".
Text SpreadsheetFileName(const Text& instrument);

// The parameter grid as it stands: protocol in A2, instrument in A3, grid row r in row r + 5 with its serial
// in column A, "END" behind the last one.
std::vector<SheetCell> SpreadsheetCells(const MainForm& form);

// Loads the grid anew (Q226), as a choice of the instrument does: values read are gone. Errors of the store.
InstrumentSheet LoadInstrumentSheet(MainForm& form);

// Chooses every instrument of the list in turn and takes its table; a failure stands in that instrument's
// sheet. Behind it the form is as it was, and nothing has been told to a view.
std::vector<InstrumentSheet> CollectInstrumentSheets(MainForm& form);

}  // namespace commtest
