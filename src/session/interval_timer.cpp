#include "session/interval_timer.h"

#include "host/clock.h"
#include "host/dialogs.h"
#include "host/serial_port.h"
#include "runtime/number.h"
#include "session/main_form.h"
#include "session/start_stop.h"
#include "session/wall_clock.h"

namespace commtest {

void TimeSetup_Click(MainForm& form) {
    if (!form.switches.intervalTimer) return;
    if (form.TimeSetup.Value()) {
        form.IntervalMinutes = 1;
        // Q56: an empty answer ends the handler here.
        form.IntervalMinutes = ToWhole16(form.outside.dialogs.AskText(
            u"时间间隔", u"请输入时间间隔,单位为 分钟 ", WholeText(form.IntervalMinutes)));
        form.IntervalLastRun = HourMinuteText(form.outside.clock.Now());
        if (!form.MSComm1.PortOpen()) StartOrStop(form, {StopCause::Interval});  // Q55: not by the caption
    }
    form.IntervalTimer().SetEnabled(form.TimeSetup.Value());
}

void TickIntervalTimer(MainForm& form) {
    const DateTime now = form.outside.clock.Now();
    // Q53, Q54: negative behind midnight, and from a full minute on.
    const double elapsed = (SecondsOfDay(now) - SecondsOfHourMinute(form.IntervalLastRun)) / 60.0;
    if (elapsed <= form.IntervalMinutes) return;
    form.IntervalLastRun = HourMinuteText(now);
    StartOrStop(form, {StopCause::Interval});
}

}  // namespace commtest
