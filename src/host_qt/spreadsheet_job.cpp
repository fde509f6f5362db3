#include "host_qt/spreadsheet_job.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

#include "host_qt/result_file.h"

namespace commtest {

using Kind = SpreadsheetResult::Kind;

namespace {

// Of every workbook in the old form, a compound file.
const QByteArray kWorkbookMark = QByteArray::fromHex("D0CF11E0A1B11AE1");

std::optional<QByteArray> BytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.readAll();
}

}  // namespace

QtSpreadsheetJob::QtSpreadsheetJob(Room room, SpreadsheetOrder order, SpreadsheetEngine::Done done)
    : room_(std::move(room)),
      order_(std::move(order)),
      done_(std::move(done)),
      templatePath_(QString::fromStdU16String(order_.templatePath)),
      resultPath_(QString::fromStdU16String(order_.resultPath)) {
    begin_.setSingleShot(true);
    begin_.callOnTimeout([this] { Start(); });
    begin_.start(0);
}

void QtSpreadsheetJob::Start() {
    if (!room_.program) return End({Kind::NoEngine});
    if (!QFileInfo(templatePath_).isFile()) return End({Kind::NoTemplate, order_.templatePath});
    if (const auto look = LookForOpenElsewhere(resultPath_); look.kind != Kind::Written) return End(look);
    if (!scratch_.isValid()) return End({Kind::CannotWrite, scratch_.errorString().toStdU16String()});
    IsConverted() ? Fill() : ConvertTemplate();
}

bool QtSpreadsheetJob::IsConverted() const {
    const ConvertedTemplate& converted = *room_.converted;
    return converted.path == templatePath_ && converted.program == room_.program->path &&
           converted.changed == QFileInfo(templatePath_).lastModified();
}

void QtSpreadsheetJob::Run(const QStringList& arguments,
                           void (QtSpreadsheetJob::*next)(ProgramStep::End, const Text&)) {
    step_ = std::make_unique<ProgramStep>(
        room_.program->path, arguments, room_.longestStep,
        [this, next](ProgramStep::End end, const Text& words) { (this->*next)(end, words); });
}

void QtSpreadsheetJob::ConvertTemplate() {
    const QString copy = Scratch(SpreadsheetProgram::kTemplateName);
    templateChanged_ = QFileInfo(templatePath_).lastModified();
    QFile original(templatePath_);
    if (!original.copy(copy)) {
        return End({Kind::UnreadableTemplate, original.errorString().toStdU16String()});
    }
    Run(room_.program->ToDocument(scratch_.path()), &QtSpreadsheetJob::TakeTemplate);
}

void QtSpreadsheetJob::TakeTemplate(ProgramStep::End end, const Text& words) {
    if (end == ProgramStep::End::Hangs) return End({Kind::EngineHangs, room_.program->name});
    const auto document = BytesOf(Scratch(room_.program->DocumentName()));
    if (end != ProgramStep::End::Good || !document) return End({Kind::UnreadableTemplate, words});
    *room_.converted = {templatePath_, QFileInfo(templatePath_).lastModified(), room_.program->path,
                        *document};
    Fill();
}

void QtSpreadsheetJob::Fill() {
    auto document = ParsedSheetDocument(room_.converted->document);
    if (!document) return End({Kind::UnreadableTemplate, room_.program->name});
    if (!PutIntoSheet(*document, room_.program->form, order_.sheet, order_.cells)) {
        return End({Kind::NoSheet, order_.sheet});
    }
    const SpreadsheetResult written =
        PutInPlace(Scratch(room_.program->FilledName()), document->toByteArray(-1));
    if (written.kind != Kind::Written) return End(written);
    Run(room_.program->ToWorkbook(scratch_.path()), &QtSpreadsheetJob::TakeWorkbook);
}

void QtSpreadsheetJob::TakeWorkbook(ProgramStep::End end, const Text& words) {
    if (end == ProgramStep::End::Hangs) return End({Kind::EngineHangs, room_.program->name});
    const auto workbook = BytesOf(Scratch(SpreadsheetProgram::kResultName));
    if (end != ProgramStep::End::Good || !workbook || !workbook->startsWith(kWorkbookMark)) {
        return End({Kind::EngineFailed, words});
    }
    if (const auto look = LookForOpenElsewhere(resultPath_); look.kind != Kind::Written) return End(look);
    End(PutInPlace(resultPath_, *workbook));
}

void QtSpreadsheetJob::End(const SpreadsheetResult& result) {
    const auto done = std::exchange(done_, {});
    done(result);
}

}  // namespace commtest
