#pragma once

namespace commtest {

class Clock;
struct Conversation;

// Fill SendText for the next poll by CommandCode, and move CurrentRow. The grid's redraw is on afterwards.
// Errors: 13 for a ConDataNub that is no number, 9 for a CurrentRow beyond the grid, 5 for a single read of a
// row without a length and under code 13 where no frame stands, 6 for a group count beyond 16 bits.
//
// Code 11, address 1: read dynamic data, read parameter 0123 of two bytes
//   "@01RD17\r"  "@01RE012302" check "\r"
void BuildTqReadRequest(Conversation& talk, Clock& clock);       // codes 11 and 13
void BuildTqGroupReadRequest(Conversation& talk, Clock& clock);  // code 12

// Moves CurrentRow to the first readable parameter; a row past the end first goes back to FirstDataRow. Acts
// under codes 11 and 12 only: under 13 a row past the end stays there.
void FindReadableRow(Conversation& talk);

// Ends a frame under code 13: its last byte gives way to two fill bytes and the line end, whose small "d"
// shows in the record. A frame left standing grows by two fill bytes each time. Where none stands, error 5:
// there is no byte to give way.
void FillFrameEnd(Conversation& talk);

}  // namespace commtest
