#pragma once

#include <functional>

#include "runtime/text.h"

// The one door through which everything that happens outside enters the session. A run-time error ends the
// handler and shows its standard message; the program goes on.
namespace commtest {

class MainForm;

// Thrown where the program ends at once: nothing more of the handler runs.
class ProgramEnds {};

void RunEvent(MainForm& form, const std::function<void()>& handler);

void TimerTicks(MainForm& form, int index);
void PortReceives(MainForm& form);

// The port is gone for good (its adapter was pulled out): the session ends, the port is closed, the record
// stays, and the user is told once.
void PortIsLost(MainForm& form, const Text& reason);

}  // namespace commtest
