#pragma once

#include <optional>

#include "window/binder.h"
#include "window/state_line.h"

namespace commtest {

// What the state line says while exchanges come from a recording and not from an instrument: which one, and
// how far it is; or that none is chosen, and the way to choose. Nothing where the tick has no effect.
std::optional<StateMessage> ReplayMessage(Binder& binder);

// What it counts while exchanges are captured; empty else.
QString CaptureCounts(const MainForm& form);

}  // namespace commtest
