#pragma once

#include "runtime/hex_text.h"

namespace commtest {

// The two check bytes of the HCT615D flow meter over the bytes of a HexText: their sum, modulo 256, and their
// exclusive or.
//   " 07 02 01 01 00" -> " 0B 05"
HexText Hct615dCheckBytes(const HexText& bytes);

// Whether bytes 59 and 60 of a reply are the check bytes of its bytes 35 to 58. Nothing else of it is looked
// at; a shorter reply never passes.
bool CheckHct615dFrame(const HexText& reply);

}  // namespace commtest
