#pragma once

namespace commtest {

class MainForm;

// The heartbeat. MainForm::CycleStep says what the next tick of Timer1(1) does:
//   0 idle                     1 ready to send             2 waiting, nothing received
//   3 waiting, bytes received  4 resume after replay       5 unused
//   6 first frame of a search  7 a native reply ended with 0A: wait for its next part
// Everything else (bytes arriving, a parser finishing) only moves the step and sets when the next tick falls.

// Ticks of the three timers: 0 clock and blink, 1 the polling cycle, 2 the interval timer.
void Timer1_Timer(MainForm& form, int index);

// Fills SendText for the next frame. Error 9 for an empty multi-instrument list or replay script.
void BuildReadRequest(MainForm& form);

// Fills SendText for a write, adds 100 to CommandCode and starts a stopped session in the short way, which
// neither opens the error file nor disables its buttons. An error of the builder leaves all that undone.
void BuildWriteRequest(MainForm& form);

// The short way into a session: by Enter in the cell editor.
void StartInShortWay(MainForm& form);

// The short way out of a running session: the error file stays open, its buttons disabled.
void StopInShortWay(MainForm& form);

}  // namespace commtest
