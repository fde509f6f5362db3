#pragma once

namespace commtest {

class MainForm;

// What the session reaches above its own floor. app/ fills it in.
class Companions {
  public:
    virtual ~Companions() = default;

    // Clicks of the tick boxes ConSaveData and ConMyCommDriver.
    virtual void SwitchCapture(MainForm& form) = 0;
    virtual void SwitchReplay(MainForm& form) = 0;

    // Stores the finished exchange in the catalogue, while ConSaveData is ticked.
    virtual void CaptureExchange(MainForm& form) = 0;

    // Gives the stored reply to the frame in SendText, in place of the line.
    virtual void ReplayReply(MainForm& form) = 0;

    // Moves the search on to its next address; false when it is over.
    virtual bool NextSearchStep(MainForm& form) = 0;

    // Toolbar commands.
    virtual void ImportParameterList(MainForm& form) = 0;
    virtual void ExportParameterLists(MainForm& form) = 0;
    virtual void ExportCurrentTable(MainForm& form) = 0;
    virtual void ExportAllTables(MainForm& form) = 0;
    virtual void ReloadParameters(MainForm& form) = 0;
    virtual void OpenToolWindow(MainForm& form) = 0;
    virtual void Leave(MainForm& form) = 0;

    // Begins the walk over the bus that the search panel describes.
    virtual void FindCommMeter(MainForm& form) = 0;

    // A script of recorded frames for the instrument and note of a row of grid 2.
    virtual void LoadRecording(MainForm& form, int row) = 0;
    // A choice of the right-mouse menu of grid 2, for one of its rows.
    virtual void ChangeRecording(MainForm& form, int entry, int row) = 0;

    virtual void ShowChipFilePanel(MainForm& form) = 0;
    virtual void ShowChipRecord(MainForm& form, int row) = 0;
};

}  // namespace commtest
