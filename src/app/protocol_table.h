#pragma once

#include "session/protocol.h"

namespace commtest {

// Every protocol that the system knows, by code.
const ProtocolTable& Protocols();

}  // namespace commtest
