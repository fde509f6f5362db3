#pragma once

#include <optional>

#include "session/main_form.h"
#include "window/state_line.h"

namespace commtest {

// What the state line says of the operation that each cycle performs: the words of its entry, else its code
// without what goes on top of it; that a search performs it; nothing where nothing is performed.
std::optional<StateMessage> OperationMessage(const MainForm& form);

}  // namespace commtest
