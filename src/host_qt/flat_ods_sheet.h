#pragma once

#include <QDomDocument>
#include <vector>

#include "host/spreadsheet.h"

namespace commtest {

// PutIntoSheet of an OpenDocument in one file.
bool PutIntoFlatOdsSheet(QDomDocument& document, const QString& sheet, const std::vector<SheetCell>& cells);

}  // namespace commtest
