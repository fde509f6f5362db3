#pragma once

#include <QDomDocument>
#include <optional>
#include <vector>

#include "host/spreadsheet.h"

namespace commtest {

// A spreadsheet as text, as a program converts it from and to a workbook. What stands in it besides the texts
// of cells, their formatting above all, goes through as it is.
enum class SheetDocumentForm {
    Gnumeric,  // of gnumeric, not compressed
    FlatOds,   // OpenDocument in one file
};

std::optional<QDomDocument> ParsedSheetDocument(const QByteArray& bytes);

// Puts the texts into the sheet, each as a text whatever it looks like; an empty one empties its cell. False
// if there is no such sheet. A character that the form cannot hold becomes "?".
bool PutIntoSheet(QDomDocument& document, SheetDocumentForm form, const Text& sheet,
                  const std::vector<SheetCell>& cells);

}  // namespace commtest
