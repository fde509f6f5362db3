#include "session/events.h"

#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "session/polling_cycle.h"
#include "session/port_settings.h"
#include "session/serial_link.h"
#include "session/toolbar_commands.h"

namespace commtest {

void RunEvent(MainForm& form, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RuntimeError& error) {
        form.dialogs.ShowError(error.Number(), error.StandardMessage());
    } catch (const ProgramEnds&) {
        form.program.End();
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
        form.Timer1[1].SetEnabled(false);
        form.MSComm1.SetPortOpen(false);
        if (form.IsRunning()) RunToolbarCommand(form, toolbar::kStartStop);
        ShowPortStatus(form);
        form.dialogs.ShowMessage(u"串口已断开,通讯停止！", reason);
    });
}

}  // namespace commtest
