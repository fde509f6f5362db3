#pragma once

#include "session/stop.h"

namespace commtest {

class MainForm;

// Button 4, a toggle: who means to stop a stopped session with it starts it. Starting opens the error file
// and disables its buttons, stopping undoes both; the port is closed by the tick behind it. `cause` is noted
// where the session stops.
void StartOrStop(MainForm& form, const Stop& cause);

// The short way into a session, by Enter in the cell editor: neither opens the error file nor disables its
// buttons. The short way out of a running one leaves them as they are, too.
void StartInShortWay(MainForm& form);
void StopInShortWay(MainForm& form, StopCause cause);

// An exception of the instrument stops the session by the button alone: CycleStep stays, and one more frame
// is built for a port that is about to close.
void StopByException(MainForm& form, OutcomePointer outcome);

}  // namespace commtest
