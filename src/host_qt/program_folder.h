#pragma once

#include <functional>

#include "host/store.h"

namespace commtest {

// Makes a program folder: the folder itself, its catalogue file, which `fill` fills, and the folder for
// records. What stands there already is left as it is. True if the catalogue was made, false if one stood
// there. A folder or file that cannot be made raises error 76 or the store's run-time error; what `fill`
// raises passes through. A failure leaves no catalogue file behind.
bool CreateProgramFolder(const Text& folder, const std::function<void(Store&)>& fill);

}  // namespace commtest
