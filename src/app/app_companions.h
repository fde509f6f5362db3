#pragma once

#include "session/companions.h"
#include "tools/data_tools.h"

namespace commtest {

// The routines above the session's floor. What is not built yet says so in the status bar, and only here.
class AppCompanions : public Companions {
  public:
    // `dataTools` is the one tool window, which OpenToolWindow loads.
    explicit AppCompanions(DataTools& dataTools) : tools_(dataTools) {}

    void SwitchCapture(MainForm& form) override;
    void SwitchReplay(MainForm& form) override;
    void CaptureExchange(MainForm& form) override;
    void ReplayReply(MainForm& form) override;
    bool NextSearchStep(MainForm& form) override;
    void ImportParameterList(MainForm& form) override;
    void ExportParameterLists(MainForm& form) override;
    void ExportCurrentTable(MainForm& form) override;
    void ExportAllTables(MainForm& form) override;
    void ReloadParameters(MainForm& form) override;
    void OpenToolWindow(MainForm& form) override;
    void Leave(MainForm& form) override;
    void FindCommMeter(MainForm& form) override;
    void LoadRecording(MainForm& form, int row) override;
    void ChangeRecording(MainForm& form, int entry, int row) override;
    void ShowChipFilePanel(MainForm& form) override;
    void ShowChipRecord(MainForm& form, int row) override;

  private:
    DataTools& tools_;
};

}  // namespace commtest
