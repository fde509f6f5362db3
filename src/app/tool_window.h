#pragma once

#include "host/store.h"
#include "tools/data_tools.h"

namespace commtest {

// Loads the tool window with the protocols of the catalogue; one that is shown already only moves to the
// front. Where the catalogue cannot be read, it is loaded without protocols and the error passes to the
// caller.
void ShowToolWindow(DataTools& tools, Store& store);

}  // namespace commtest
