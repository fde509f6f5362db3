#pragma once

#include "session/companions.h"

namespace commtest {

// The routines above the session's floor that its cycle calls.
class AppCompanions : public Companions {
  public:
    void CaptureExchange(MainForm& form) override;
    void TakeReplayFrame(MainForm& form) override;
    void ReplayReply(MainForm& form) override;
    bool NextSearchStep(MainForm& form) override;
};

}  // namespace commtest
