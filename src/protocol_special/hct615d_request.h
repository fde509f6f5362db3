#pragma once

namespace commtest {

class Clock;
struct Conversation;

// Fills SendText with the one request of the HCT615D flow meter: seven bytes AA, 07 02, the address, 01 00,
// then the sum and the exclusive or of bytes 8 to 12. It has no line end. Address 1:
//   " AA AA AA AA AA AA AA 07 02 01 01 00 0B 05"
// CommandCode has no influence (Q204). Every protocol code that is not known polls with it, too (Q162). An
// address of another form shifts the bytes behind it.
void BuildHct615dReadRequest(Conversation& talk, Clock&);

}  // namespace commtest
