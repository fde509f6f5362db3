#include "host_qt/sheet_document.h"

#include "host_qt/flat_ods_sheet.h"
#include "host_qt/gnumeric_sheet.h"

namespace commtest {

std::optional<QDomDocument> ParsedSheetDocument(const QByteArray& bytes) {
    QDomDocument document;
    if (!document.setContent(bytes)) return std::nullopt;
    return document;
}

bool PutIntoSheet(QDomDocument& document, SheetDocumentForm form, const Text& sheet,
                  const std::vector<SheetCell>& cells) {
    const QString name = QString::fromStdU16String(sheet);
    return form == SheetDocumentForm::Gnumeric ? PutIntoGnumericSheet(document, name, cells)
                                               : PutIntoFlatOdsSheet(document, name, cells);
}

}  // namespace commtest
