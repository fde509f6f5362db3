#pragma once

#include "host/spreadsheet.h"

// What is said of spreadsheets that were not written, by every face alike.
namespace commtest {

// One line: what is wrong and what to do. Empty for one that is written.
Text WordsOnSpreadsheet(const SpreadsheetResult& result);

}  // namespace commtest
