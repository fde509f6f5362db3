#pragma once

#include "session/protocol.h"

namespace commtest {

// How the rows of the special instruments are read one by one. A NOVAX instrument is walked from row 10 on;
// its status rows come with every reply, rows of attribute "S" get no value. Values are two's complement of
// 16 bits, whatever the number format says that entries are written in. The decimals of a row stand in the
// first row at the address in its column 5, if the name of that row says so.
extern const RowManner kNovaxRowManner;

// The HCT615D flow meter has four rows from row 6 on, and no writes.
extern const RowManner kHct615dRowManner;

}  // namespace commtest
