#pragma once

#include <optional>

#include "session/main_form.h"
#include "window/state_line.h"

namespace commtest {

// Whether the polling stands still while the cell editor is open that has stopped it: neither running nor
// stopped for good.
bool IsStoppedForEditing(const MainForm& form);

// What the state line says of it; nothing where it is not so.
std::optional<StateMessage> MessageOnEditing(const MainForm& form);

}  // namespace commtest
