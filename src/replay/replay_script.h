#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// The tick 数据演示 was clicked. On: 10000 on top of CommandCode, the session stopped in a short way, the tab
// of the recordings and a word what to do. Off: the plain operation, and the instruments of the protocol
// anew. Either way the interval becomes 1000 ms.
void ConMyCommDriver_Click(MainForm& form);

// Chooses the protocol and the instrument of a recording, and in replay loads its exchanges, the first of
// which is passed over on the first run. An instrument that is not in the catalogue is told. Errors of the
// store.
void SelectRecording(MainForm& form, const Text& protocol, const Text& instrument, const Text& note);

// The frame at the cursor into SendText; behind the last one the cursor begins anew. Error 9 without a
// script.
void TakeReplayFrame(MainForm& form);

// The reply at the cursor is taken and moves the cursor on.
void ReplayReply(MainForm& form);

// An entry of the menu of a recording in row `row` of the list, and the list anew behind it: 1 another name
// for its instrument, 2 another note, 4 marks it as deleted, 6 only the list.
void DemoData_Click(MainForm& form, int index, int row);

}  // namespace commtest
