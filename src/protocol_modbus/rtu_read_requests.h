#pragma once

namespace commtest {

class Clock;
struct Conversation;

// Fill SendText for the next poll by CommandCode, and move CurrentRow into the grid. The grid's redraw is on
// afterwards, off behind an error: 13 for a ConDataNub that is no number, 6 for one beyond 16 bits, and in
// form A 13 for a length that begins with no digit. The forms differ in how they read; address 1, row address
// 0010, a single read:
//   A  function 03 or 04 by length and instrument   " 01 03 00 10 00 01 85 CF"
//   B  function 03, one register                    " 01 03 00 10 00 01 85 CF"
//   C  function 04, one register                    " 01 04 00 10 00 01 30 0F"
//   D  function 03, two registers                   " 01 03 00 10 00 02 C5 CE"
// Only A and D know the board type and the tests; the others send the last frame again for these.
void BuildRtuReadFormA(Conversation& talk, Clock& clock);  // codes 31, 34
void BuildRtuReadFormB(Conversation& talk, Clock& clock);  // code 32
void BuildRtuReadFormC(Conversation& talk, Clock& clock);  // code 33
void BuildRtuReadFormD(Conversation& talk, Clock& clock);  // codes 35, 51

}  // namespace commtest
