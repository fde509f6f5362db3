#pragma once

namespace commtest {

class MainForm;

// The heartbeat. CycleStep (session/cycle_step.h) says what the next tick of Timer1(1) does. Everything else
// (bytes arriving, a reply taken) only moves the step and sets when the next tick falls.

// Ticks of the three timers: 0 clock and blink, 1 the polling cycle, 2 the interval timer.
void Timer1_Timer(MainForm& form, int index);

// Fills SendText for the next frame. Error 9 for an empty multi-instrument list or replay script.
void BuildReadRequest(MainForm& form);

// Fills SendText for a write, adds 100 to CommandCode and starts a stopped session in the short way, which
// neither opens the error file nor disables its buttons. An error of the builder leaves all that undone.
void BuildWriteRequest(MainForm& form);

}  // namespace commtest
