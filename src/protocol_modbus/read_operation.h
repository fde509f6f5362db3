#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace commtest {

class Clock;
class Grid;
struct Operation;
struct ParameterRows;

// What the Modbus read builders of both framings share.

// First row of the grid that they read.
inline constexpr std::int16_t kFirstModbusRow = 6;

// What CommandCode asks a read builder for. Nothing: SendText stays and goes out (again).
enum class ReadOperation { Nothing, SingleRow, SeveralRows, BoardType, FixedTest, RisingTest };

// Sorts CommandCode: 0 to 50 and above 1000 read a single row, 60 several; 80, 90 and 91 are board type and
// tests. 101 to 1000 ask for nothing, since the frame of a write waits in SendText: they are brought below
// 100 by remainder.
ReadOperation TakeReadOperation(Operation& operation);

// A CurrentRow outside row 6 to the last row becomes 6; column 6 of it is emptied. Error 9 if the grid has no
// row 6.
void PrepareRowForRead(ParameterRows& rows);

// How many parameters a read of several rows may ask for: the number in ConDataNub, with Check2 ticked a
// random whole number from 0 to below it. Errors 13 and 6 for a ConDataNub that is no 16-bit number.
std::int16_t TakeReadLimit(const Operation& operation, Clock& clock);

// The address of column 2 as a read asks for it: its first digit replaced by 0, "4010" becomes "0010".
Text ZeroToppedAddress(const Text& address);

// Whether the address of `row` is that of the row before it plus `step`, the first digit of the row before
// taken as 0.
bool RowRunsOn(const Grid& grid, int row, double step);

}  // namespace commtest
