#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace commtest {

class Clock;
class Dialogs;
struct Conversation;
struct InstrumentInUse;

// Rows 6 to 9 of the grid hold the four status values that every reply brings; the parameters begin behind
// them.
inline constexpr std::int16_t kFirstNovaxRow = 10;

// Fill SendText with a request of eight bytes: AddressText (the address plus 128, twice), command 52 or 43,
// the parameter number (column 2 from its third character on), two bytes of data, low byte first, the check
// word. Errors of MakeCRCWordNOVAX, which leave the frame without it.

// The read of CurrentRow for the next poll; one outside row 10 to the last row becomes 10. Column 7 of it is
// emptied. CommandCode tells no reads apart: 101 to 1000 let SendText, the frame of a write, stay and are
// brought below 100 by remainder, below 1 it stays, too. Error 9 if the grid has no row 10. The grid's redraw
// is on afterwards, but not behind an error.
//   address 1, parameter 0012: " 81 81 52 12 00 00 53 12"
void BuildNovaxReadRequest(Conversation& talk, Clock&);

// The write of the entry in InputText to the grid's current row. The entry goes into the current cell; the
// write attribute and the limits are not looked at. Errors: 13 for an entry that is no number; those of the
// codec.
//   address 1, 1 to parameter 0015: " 81 81 43 15 01 00 45 15"
void BuildNovaxWriteRequest(Conversation& talk, Dialogs&);

// The code of a number in the number format of the instrument, high byte first. The frame carries its
// characters 1 to 4. Errors of the codec.
Text NovaxCodeOf(const InstrumentInUse& instrument, Text digits);

}  // namespace commtest
