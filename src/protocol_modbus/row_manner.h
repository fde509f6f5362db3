#pragma once

#include "session/protocol.h"

namespace commtest {

// How the rows of Modbus instruments are read one by one: from row 6 on. An ASCII row has its own decimals;
// the decimals of an RTU row stand in the first row at the address in its column 5 whose attribute is not
// "S".
extern const RowManner kAsciiRowManner;
extern const RowManner kRtuRowManner;
extern const RowManner kRtuFlowRowManner;  // its writes carry four bytes

}  // namespace commtest
