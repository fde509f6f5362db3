#pragma once

#include "app/import_run.h"
#include "window/fact_box.h"

namespace commtest {

// What an import has come to. It stands while the export behind it goes on.
class ImportResult : public FactBox {
    Q_OBJECT

  public:
    ImportResult(const ImportRun& run, qint64 milliseconds, const Theme& theme, QWidget* window);

    void ShowExport(const ImportRun& run);

  signals:
    void RestoreWanted();
};

}  // namespace commtest
