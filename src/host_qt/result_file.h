#pragma once

#include <QByteArray>

#include "host/spreadsheet.h"

namespace commtest {

// Nothing, or why another program would not like the file to change.
SpreadsheetResult LookForOpenElsewhere(const QString& path);

// Gives a file these bytes, whole or not at all: they are written beside it and take its name at the end.
SpreadsheetResult PutInPlace(const QString& path, const QByteArray& bytes);

}  // namespace commtest
