#pragma once

#include "runtime/hex_text.h"

namespace commtest {

// Appends the check word of the NOVAX instruments to a request of six bytes, low byte first: byte 4 times
// 256, plus the signed number of bytes 6 and 5, plus byte 3, plus the whole part of the plain address. The
// frame gets its leading blank if it has none. Error 6 where the sum leaves 16 bits, error 13 for an address
// that is no number.
//   address 1: " 81 81 52 12 00 00" -> " 81 81 52 12 00 00 53 12"
void MakeCRCWordNOVAX(HexText& frame, const Text& address);

}  // namespace commtest
