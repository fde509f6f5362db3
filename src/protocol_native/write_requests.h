#pragma once

namespace commtest {

class Dialogs;
struct Conversation;

// Turn the entry in InputText into the write frame of the grid's current row, in SendText. The entry goes
// into the current cell; limits and the write attribute are not looked at. Error 13 for an entry that is no
// number: no frame is built then.
//
// Code 11, address 1, value 00C8 of two bytes to 0123; code 12 puts length characters around the address
// column:
//   "@01W2012300C81F\r"  "@01W" column 2 "0" column 3 "C800" check "\r"
void BuildTqWriteRequest(Conversation& talk, Dialogs&);     // code 11
void BuildTqWriteRequestTwo(Conversation& talk, Dialogs&);  // code 12

}  // namespace commtest
