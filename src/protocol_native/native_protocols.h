#pragma once

#include <vector>

#include "session/protocol.h"

namespace commtest {

// The rows of the native family: codes 11, 12, 13.
std::vector<Protocol> NativeProtocols();

}  // namespace commtest
