#include "session/interval_timer.h"

#include "runtime/number.h"
#include "session/main_form.h"
#include "session/toolbar_commands.h"
#include "session/wall_clock.h"

namespace commtest {

void TimeSetup_Click(MainForm& form) {
    if (form.TimeSetup.Value()) {
        form.IntervalMinutes = 1;
        form.IntervalMinutes = ToWhole16(form.dialogs.AskText(u"时间间隔", u"请输入时间间隔,单位为 分钟 ",
                                                              WholeText(form.IntervalMinutes)));
        form.IntervalLastRun = HourMinuteText(form.clock.Now());
        if (!form.MSComm1.PortOpen()) RunToolbarCommand(form, toolbar::kStartStop);
    }
    form.Timer1[2].SetEnabled(form.TimeSetup.Value());
}

void TickIntervalTimer(MainForm& form) {
    const DateTime now = form.clock.Now();
    const double elapsed = (SecondsOfDay(now) - SecondsOfHourMinute(form.IntervalLastRun)) / 60.0;
    if (elapsed <= form.IntervalMinutes) return;
    form.IntervalLastRun = HourMinuteText(now);
    RunToolbarCommand(form, toolbar::kStartStop);
}

}  // namespace commtest
