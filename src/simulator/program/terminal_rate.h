#pragma once

namespace simulator {

// Baud rate set at a terminal, also one that is none of the standard rates; 0 if it tells none.
int RateOfTerminal(int handle);

}  // namespace simulator
