#include "app/app_companions.h"

#include "replay/capture.h"
#include "replay/replay_script.h"
#include "search/instrument_search.h"

namespace commtest {

void AppCompanions::CaptureExchange(MainForm& form) { commtest::CaptureExchange(form); }

void AppCompanions::TakeReplayFrame(MainForm& form) { commtest::TakeReplayFrame(form); }

void AppCompanions::ReplayReply(MainForm& form) { commtest::ReplayReply(form); }

bool AppCompanions::NextSearchStep(MainForm& form) { return commtest::NextSearchStep(form); }

}  // namespace commtest
