#pragma once

#include "catalogue/spreadsheet_run.h"
#include "window/fact_box.h"

namespace commtest {

// What an export of many tables has come to: how many were written, and why the others were not.
class SpreadsheetSummary : public FactBox {
    Q_OBJECT

  public:
    // `folder` is that of the results, without those above it.
    SpreadsheetSummary(const SpreadsheetRun& run, const QString& folder, qint64 milliseconds,
                       const Theme& theme, QWidget* window);

  signals:
    void RetryWanted();
    void FolderWanted();

  private:
    void ListFailures(const SpreadsheetRun& run);
};

}  // namespace commtest
