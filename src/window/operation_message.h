#pragma once

#include <optional>

#include "session/main_form.h"
#include "window/state_line.h"

namespace commtest {

// What the state line says of the operation that each cycle performs; nothing where no entry names it.
std::optional<StateMessage> OperationMessage(const MainForm& form);

}  // namespace commtest
