#pragma once

namespace commtest {

class Clock;
struct Conversation;

// Fill SendText for the next poll by CommandCode; what asks for neither one row nor several leaves it. Column
// 6 of CurrentRow is emptied. Errors, which leave SendText: 13 for a length or a ConDataNub that is no
// number, 6 for one beyond 16 bits, 9 for a grid without row 6.
//
// Address 1, parameter 0010 of two bytes; code 22 of five bytes; code 23 whatever the row says:
//   ":010300100001EB\r\n"  ":010310017A\r\n"  ":01030110EB\r\n"
void BuildAsciiRead(Conversation& talk, Clock& clock);  // code 21: the count is in words of two bytes
void BuildAsciiReadCustom01(Conversation& talk,
                            Clock& clock);  // code 22: low address byte alone, count in fives of bytes
void BuildAsciiReadCustom02(Conversation& talk,
                            Clock& clock);  // code 23: as 21 for several rows, a fixed frame for one

}  // namespace commtest
