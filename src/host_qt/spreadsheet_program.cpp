#include "host_qt/spreadsheet_program.h"

#include <QStandardPaths>
#include <QUrl>
#include <array>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

struct KnownProgram {
    TextView name;
    QStringView file;
    SheetDocumentForm form;
    int atATime;
};

// LibreOffice does one conversion at a time in one profile, and takes all of a processor for it.
constexpr std::array<KnownProgram, 2> kPrograms = {{
    {u"ssconvert", u"ssconvert", SheetDocumentForm::Gnumeric, 2},
    {u"LibreOffice", u"soffice", SheetDocumentForm::FlatOds, 1},
}};

QString InFolder(const QString& folder, const QString& name) { return folder + u'/' + name; }

QStringList OfficeArguments(const QString& folder, const QString& target, const QString& file) {
    const QString profile = QUrl::fromLocalFile(InFolder(folder, u"profile"_s)).toString(QUrl::FullyEncoded);
    return {u"-env:UserInstallation="_s + profile,
            u"--headless"_s,
            u"--norestore"_s,
            u"--convert-to"_s,
            target,
            u"--outdir"_s,
            folder,
            file};
}

}  // namespace

const QString SpreadsheetProgram::kTemplateName = u"template.xls"_s;
const QString SpreadsheetProgram::kResultName = u"filled.xls"_s;

QString SpreadsheetProgram::DocumentName() const {
    return form == SheetDocumentForm::Gnumeric ? u"template.xml"_s : u"template.fods"_s;
}

QString SpreadsheetProgram::FilledName() const {
    return form == SheetDocumentForm::Gnumeric ? u"filled.xml"_s : u"filled.fods"_s;
}

QStringList SpreadsheetProgram::ToDocument(const QString& folder) const {
    const QString workbook = InFolder(folder, kTemplateName);
    if (form == SheetDocumentForm::FlatOds) return OfficeArguments(folder, u"fods"_s, workbook);
    return {u"--import-type=Gnumeric_Excel:excel"_s, u"--export-type=Gnumeric_XmlIO:sax:0"_s, workbook,
            InFolder(folder, DocumentName())};
}

QStringList SpreadsheetProgram::ToWorkbook(const QString& folder) const {
    const QString filled = InFolder(folder, FilledName());
    if (form == SheetDocumentForm::FlatOds) return OfficeArguments(folder, u"xls:MS Excel 97"_s, filled);
    return {u"--import-type=Gnumeric_XmlIO:sax"_s, u"--export-type=Gnumeric_Excel:excel_biff8"_s, filled,
            InFolder(folder, kResultName)};
}

std::optional<SpreadsheetProgram> FindSpreadsheetProgram(const QString& searchPath) {
    const QStringList folders = searchPath.split(u':', Qt::SkipEmptyParts);
    for (const KnownProgram& known : kPrograms) {
        const QString path = QStandardPaths::findExecutable(known.file.toString(), folders);
        if (!path.isEmpty()) return SpreadsheetProgram{Text(known.name), path, known.form, known.atATime};
    }
    return std::nullopt;
}

}  // namespace commtest
