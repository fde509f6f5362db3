#include "session/events.h"

#include "host/dialogs.h"
#include "host/program_process.h"
#include "host/serial_port.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "session/polling_cycle.h"
#include "session/port_settings.h"
#include "session/serial_link.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

// A handler of the cycle that ends in between leaves its timer off: nothing more is sent, whatever button 4
// says.
void NoteIfPollingEnded(MainForm& form, const RuntimeError& error) {
    if (!form.IsRunning() || form.PollTimer().Enabled()) return;
    form.NoteStop(
        {.cause = StopCause::RuntimeError, .detail = error.StandardMessage(), .error = error.Number()});
}

}  // namespace

void RunEvent(MainForm& form, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RuntimeError& error) {
        NoteIfPollingEnded(form, error);
        form.outside.dialogs.ShowError(error.Number(), error.StandardMessage());
    } catch (const ProgramEnds&) {
        form.outside.program.End();
    }
}

void TimerTicks(MainForm& form, int index) {
    RunEvent(form, [&] { Timer1_Timer(form, index); });
}

void PortReceives(MainForm& form) {
    RunEvent(form, [&] { MSComm1_OnComm(form); });
}

void PortIsLost(MainForm& form, const Text& reason) {
    RunEvent(form, [&] {
        form.PollTimer().SetEnabled(false);
        form.MSComm1.SetPortOpen(false);
        if (form.IsRunning()) StartOrStop(form, {.cause = StopCause::PortLost, .detail = reason});
        ShowPortStatus(form);
        form.outside.dialogs.ShowNotice({Notice::Kind::PortLost, reason});
    });
}

}  // namespace commtest
