#pragma once

#include "session/protocol.h"

namespace commtest {

// How the native instruments' rows are read one by one: from the first "RW" row on, commands and rows without
// "R" or "S" left out. The decimals of a row stand in the first row at the address in its column 5, if the
// name of that row says so.
extern const RowManner kNativeRowManner;

}  // namespace commtest
