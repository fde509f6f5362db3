#pragma once

#include "runtime/text.h"

namespace commtest {

class Dialogs;
struct Conversation;

// Turn the entry in InputText into the write frame of the grid's current row, in SendText. The entry goes
// into the current cell; limits and the write attribute are not looked at. Error 13 for an entry that is no
// number: no frame is built then. Address 1, row address 0010:
//   length 2, 1000 in format 1    " 01 06 00 10 03 E8 88 B1"
//   length 1, 100 in format 7     " 01 06 00 10 64 15 63"
void BuildRtuWrite(Conversation& talk, Dialogs& dialogs);  // codes 31, 32, 34

// Writes rows of four bytes only, in the way that WriteType says; 100 in format 3:
//   0  two frames, the second one at the next entry  " 01 06 00 10 42 C8 B9 39", " 01 06 00 11 00 00 D9 CF"
//   1  one frame of four bytes                       " 01 06 00 10 42 C8 00 00 B3 82"
//   2  one frame of function 10                      " 01 10 00 10 00 02 04 42 C8 00 00 67 25"
// A face without the choice writes in the way of 0, with words of its own at the first entry.
void BuildRtuWriteFlow(Conversation& talk, Dialogs& dialogs);  // code 35

// The code of an entry for a row, as much of it as such a frame carries. Errors as above.
Text CodeOfRtuEntry(const Conversation& talk, int row, const Text& entry);
Text CodeOfRtuFlowEntry(const Conversation& talk, int row, const Text& entry);

}  // namespace commtest
