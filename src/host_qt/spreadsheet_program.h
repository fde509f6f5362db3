#pragma once

#include <QStringList>
#include <optional>

#include "host_qt/sheet_document.h"

namespace commtest {

// A program of the machine that converts spreadsheets.
struct SpreadsheetProgram {
    Text name;     // as its user knows it
    QString path;  // its file
    SheetDocumentForm form = SheetDocumentForm::Gnumeric;
    int atATime = 1;

    // Files of a scratch folder.
    QString DocumentName() const;  // what a template becomes
    QString FilledName() const;    // what a result is made of

    // The arguments that make the document of the template, and those that make the result of the filled one.
    QStringList ToDocument(const QString& folder) const;
    QStringList ToWorkbook(const QString& folder) const;

    static const QString kTemplateName;  // a copy of the template, in the folder
    static const QString kResultName;
};

// The first that there is in the folders, parted by ":"; in those of PATH where none are given.
std::optional<SpreadsheetProgram> FindSpreadsheetProgram(const QString& searchPath);

}  // namespace commtest
