#include "app/app_companions.h"

#include "commands/not_there_yet.h"

namespace commtest {

void AppCompanions::CaptureExchange(MainForm& form) { SayNotThereYet(form, Feature::Capture); }

void AppCompanions::ReplayReply(MainForm& form) { SayNotThereYet(form, Feature::Replay); }

bool AppCompanions::NextSearchStep(MainForm& form) {
    SayNotThereYet(form, Feature::Search);
    return false;
}

}  // namespace commtest
