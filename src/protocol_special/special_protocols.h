#pragma once

#include <vector>

#include "session/protocol.h"

namespace commtest {

// The rows of the special instruments: codes 41 (NOVAX) and 42 (HCT615D).
std::vector<Protocol> SpecialProtocols();

}  // namespace commtest
