#pragma once

#include <QDomDocument>
#include <vector>

#include "host/spreadsheet.h"

namespace commtest {

// PutIntoSheet of a document of gnumeric.
bool PutIntoGnumericSheet(QDomDocument& document, const QString& sheet, const std::vector<SheetCell>& cells);

}  // namespace commtest
