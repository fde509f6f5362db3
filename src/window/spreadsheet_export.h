#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <functional>
#include <memory>
#include <set>

#include "catalogue/spreadsheet_run.h"
#include "window/binder.h"
#include "window/list_room.h"
#include "window/note_bar.h"
#include "window/store_wait.h"
#include "window/theme.h"
#include "window/work_band.h"

namespace commtest {

class SpreadsheetSummary;

// 导出当前参数地址表 and 导出全部参数地址表 as the window has them: the tables are collected at once, their
// spreadsheets are written beside the polling.
class SpreadsheetExport : public QObject {
    Q_OBJECT

  public:
    explicit SpreadsheetExport(const ListRoom& room);
    ~SpreadsheetExport() override;

    // Without one nothing is written, and the user is told what to install.
    void Use(SpreadsheetEngine& engine) { engine_ = &engine; }

    // Opens a file or a folder with the desktop's own program; false where it has none.
    std::function<bool(const QString& path)> Opener;

    void ExportCurrent();
    void ExportAll();
    bool IsUnderWay() const { return run_ && !run_->IsOver(); }

    // Asks while spreadsheets are being written; leaving then cancels the rest.
    bool MayLeave();

  private:
    void Retry();
    void Begin(std::vector<InstrumentSheet> sheets);
    void Follow();
    void End();
    void EndCurrent();
    void Summarise();
    void Refuse(const QString& reason);
    void AskToCancel();
    bool AskAndCancel(const QString& question);
    void ShowBand();
    void ShowProgress();
    void OpenFolder();

    MainForm& Form() { return room_.binder.Form(); }
    QString Folder();

    ListRoom room_;
    SpreadsheetEngine* engine_ = nullptr;
    std::unique_ptr<SpreadsheetRun> run_;
    bool isOfAll_ = false;
    bool isAsking_ = false;
    std::set<Text> failed_;  // instruments of the last run, which a retry takes
    QElapsedTimer time_;
    QPointer<SpreadsheetSummary> summary_;
};

}  // namespace commtest
