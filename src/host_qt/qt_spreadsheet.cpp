#include "host_qt/qt_spreadsheet.h"

#include <utility>

#include "host_qt/spreadsheet_job.h"

namespace commtest {

QtSpreadsheetEngine::QtSpreadsheetEngine(QString searchPath, int longestStep)
    : searchPath_(std::move(searchPath)),
      longestStep_(longestStep),
      template_(std::make_shared<ConvertedTemplate>()) {}

int QtSpreadsheetEngine::JobsAtATime() const {
    const auto program = FindSpreadsheetProgram(searchPath_);
    return program ? program->atATime : 1;
}

std::unique_ptr<SpreadsheetJob> QtSpreadsheetEngine::Begin(SpreadsheetOrder order, Done done) {
    return std::make_unique<QtSpreadsheetJob>(
        QtSpreadsheetJob::Room{FindSpreadsheetProgram(searchPath_), longestStep_, template_},
        std::move(order), std::move(done));
}

}  // namespace commtest
