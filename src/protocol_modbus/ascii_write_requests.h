#pragma once

#include "runtime/text.h"

namespace commtest {

class Dialogs;
struct Conversation;

// Turns the entry in InputText into the write frame of the grid's current row, in SendText, and CommandCode
// into 60. The entry goes into the current cell; limits and the write attribute are not looked at. Column 5
// holds the number of decimals itself. Errors, which leave SendText: 13 for an entry, a length or decimals
// that are no number, 6 for a value beyond 32 bits.
//
// A row whose name holds "变比" takes two entries: the first one writes the third byte of the value (a
// message says so), the second one the fourth, to the address behind it.
//
// Address 1, value 1000 of two bytes to 0010:
//   ":0106001003E8FE\r"
void BuildAsciiWrite(Conversation& talk, Dialogs& dialogs);

// The digits of an entry for a row, as they stand in the frame. Errors as above.
Text DigitsOfAsciiEntry(const Conversation& talk, int row, const Text& entry);

}  // namespace commtest
