#pragma once

#include <QDateTime>
#include <QTemporaryDir>
#include <QTimer>
#include <memory>
#include <optional>

#include "host_qt/program_step.h"
#include "host_qt/spreadsheet_program.h"

namespace commtest {

struct ConvertedTemplate {
    QString path;  // of the template
    QDateTime changed;
    QString program;  // that has converted it
    QByteArray document;
};

// An order under way: the template becomes a document, the cells are put into it, the document becomes a
// workbook, which takes the place of the result.
class QtSpreadsheetJob : public SpreadsheetJob {
  public:
    struct Room {
        std::optional<SpreadsheetProgram> program;
        int longestStep = 0;
        std::shared_ptr<ConvertedTemplate> converted;
    };
    QtSpreadsheetJob(Room room, SpreadsheetOrder order, SpreadsheetEngine::Done done);

  private:
    void Start();
    void ConvertTemplate();
    void TakeTemplate(ProgramStep::End end, const Text& words);
    void Fill();
    void TakeWorkbook(ProgramStep::End end, const Text& words);

    bool IsConverted() const;
    QString Scratch(const QString& name) const { return scratch_.filePath(name); }
    void Run(const QStringList& arguments, void (QtSpreadsheetJob::*next)(ProgramStep::End, const Text&));
    void End(const SpreadsheetResult& result);  // this may be gone behind it

    Room room_;
    SpreadsheetOrder order_;
    SpreadsheetEngine::Done done_;
    QString templatePath_;
    QDateTime templateChanged_;
    QString resultPath_;
    QTemporaryDir scratch_;
    QTimer begin_;
    std::unique_ptr<ProgramStep> step_;
};

}  // namespace commtest
