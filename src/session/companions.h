#pragma once

namespace commtest {

class MainForm;

// What the polling cycle calls above the session's floor. app/ fills it in.
class Companions {
  public:
    virtual ~Companions() = default;

    // Stores the finished exchange in the catalogue, while ConSaveData is ticked.
    virtual void CaptureExchange(MainForm& form) = 0;

    // The recorded frame at the cursor of the script into SendText. Error 9 without a script.
    virtual void TakeReplayFrame(MainForm& form) = 0;

    // Gives the stored reply to the frame in SendText, in place of the line.
    virtual void ReplayReply(MainForm& form) = 0;

    // Moves the search on to its next address; false when it is over.
    virtual bool NextSearchStep(MainForm& form) = 0;
};

}  // namespace commtest
