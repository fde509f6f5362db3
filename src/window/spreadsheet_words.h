#pragma once

#include <QString>

#include "catalogue/spreadsheet_run.h"

namespace commtest {

// How the window words spreadsheets; where it has the file at hand, its name is not said again.

// Why a table was not written, in a line: "文件已在别处打开，原文件未动".
QString WordsOn(const SpreadsheetResult& result);
QString WordsOn(const SpreadsheetRun::Entry& entry);

QString NameOfResult(const SpreadsheetRun::Entry& entry);  // without its folder

}  // namespace commtest
