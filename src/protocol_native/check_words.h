#pragma once

#include "runtime/hex_text.h"

namespace commtest {

// The native family's two check words. Both cover the bytes from the second one on (the first, "@", takes no
// part) and are appended as two hexadecimal digits in ASCII. An unreadable pair counts as 0. The frame gets
// its leading blank if it has none.
//
// Address 1, read dynamic data, before and behind the XOR word 17:
//   " 40 30 31 52 44" -> " 40 30 31 52 44 31 37"
void MakeCRCWordTq(HexText& frame);     // exclusive or
void MakeCRCWordTqTwo(HexText& frame);  // sum, its low byte; error 6 where the sum leaves 16 bits

// Whether a received frame's last two bytes before its one-byte line end are the check word of those in
// front. Fewer than eight bytes never pass.
bool TestCRCWordTq(const HexText& frame);
bool TestCRCWordTqTwo(const HexText& frame);

}  // namespace commtest
