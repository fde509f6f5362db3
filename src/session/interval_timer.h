#pragma once

namespace commtest {

class MainForm;

// 间歇性通讯: asks for the minutes and starts or ends the interval timer. Error 13 for an answer that is no
// number, also for a cancelled question.
void TimeSetup_Click(MainForm& form);

// The tick of Timer1(2): flips the session between running and stopped when the minutes have passed. Quiet
// across midnight until the clock passes the stored time again.
void TickIntervalTimer(MainForm& form);

}  // namespace commtest
