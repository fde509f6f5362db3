#pragma once

#include <QElapsedTimer>
#include <QPointer>

#include "app/import_run.h"
#include "app/list_look.h"
#include "window/binder.h"
#include "window/list_room.h"
#include "window/note_bar.h"
#include "window/slices.h"
#include "window/store_wait.h"
#include "window/theme.h"
#include "window/work_band.h"

namespace commtest {

class ImportQuestion;
class ImportResult;
class SavedFindings;

// 导入地址 as the window has it: the list is looked through, the user is asked, and the import goes on in
// slices while the session polls.
class ListImport : public QObject {
    Q_OBJECT

  public:
    explicit ListImport(const ListRoom& room);
    ~ListImport() override;

    void Begin();
    bool IsUnderWay() const { return slices_.IsUnderWay(); }

    // Asks while the catalogue is being written; leaving then takes the import back.
    bool MayLeave();

    // Of the list, into a file.
    void SaveFindings(const QString& path);

  signals:
    void RestoreWanted();

  private:
    void EndLook();
    QString WhyNotAtAll() const;
    void Ask();
    void ChooseFileOfFindings();
    void Import();
    void FollowImport();
    void ShowResult();
    void EndImport();
    void AskToCancel();
    void ShowProgress();
    void Stop();

    MainForm& Form() { return room_.binder.Form(); }

    ListRoom room_;
    Slices slices_;
    Slices saving_;
    QElapsedTimer time_;
    std::unique_ptr<ListLook> look_;
    std::unique_ptr<ImportRun> run_;
    std::unique_ptr<SavedFindings> findings_;
    QPointer<ImportQuestion> question_;
    QPointer<ImportResult> result_;
    bool isResultShown_ = false;  // of this import
};

}  // namespace commtest
