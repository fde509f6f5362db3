#pragma once

#include <vector>

#include "session/protocol.h"

namespace commtest {

// The rows of the Modbus family.
std::vector<Protocol> RtuProtocols();    // codes 31, 32, 33, 34, 35, 51
std::vector<Protocol> AsciiProtocols();  // codes 21, 22, 23

}  // namespace commtest
