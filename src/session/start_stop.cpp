#include "session/start_stop.h"

#include "host/program_files.h"
#include "session/cycle_step.h"
#include "session/main_form.h"

namespace commtest {

namespace {

void SetErrorFileButtonsEnabled(MainForm& form, bool enabled) {
    for (Presence& button : form.ClearFileCommand) button.SetEnabled(enabled);
}

void Start(MainForm& form) {
    form.StaticSample.clear();
    form.DynamicSample.clear();
    SetErrorFileButtonsEnabled(form, false);
    form.SetRunning(true);
    form.CycleStep = cycle_step::kReady;
    form.PollTimer().SetEnabled(true);
    form.outside.files.OpenErrorFile();
}

void StopRunning(MainForm& form, const Stop& cause) {
    form.NoteStop(cause);
    form.SetRunning(false);
    form.CycleStep = cycle_step::kIdle;
    form.outside.files.CloseErrorFile();
    SetErrorFileButtonsEnabled(form, true);
}

}  // namespace

void StartOrStop(MainForm& form, const Stop& cause) {
    if (form.IsRunning()) {  // Q50: whatever the caller means
        StopRunning(form, cause);
    } else {
        Start(form);
    }
}

// Q48: the error file stays as it is.
void StartInShortWay(MainForm& form) {
    if (form.IsRunning()) return;
    form.SetRunning(true);
    form.CycleStep = cycle_step::kReady;
    form.PollTimer().SetEnabled(true);
}

// Q49: the error file stays open.
void StopInShortWay(MainForm& form, StopCause cause) {
    if (!form.IsRunning()) return;
    form.NoteStop({cause});
    form.SetRunning(false);
    form.CycleStep = cycle_step::kIdle;
}

void StopByException(MainForm& form, OutcomePointer outcome) {
    form.NoteStop({.cause = StopCause::Exception, .outcome = std::move(outcome)});
    form.SetRunning(false);  // Q130: CycleStep stays
}

}  // namespace commtest
