#pragma once

#include "runtime/text.h"

// The check words of frames written in ASCII digits. A text that holds a ":" anywhere first loses its first
// character, so that a whole frame text can be given as it is. Error 6 where the sum leaves 16 bits.
namespace commtest {

// Two's complement of the sum of the hexadecimal pairs, two upper-case digits. The number of pairs is half
// the length rounded half to even: of 9 characters the last one is dropped, of 11 it counts as a pair. A sum
// that is a multiple of 256 gives the three digits "100".
//   "010300100001" -> "EB"
Text LrcOfPairs(Text text);

// The same over the codes of the characters (code page 936), of which 0 gives "00".
//   "01031001" -> "7A"
Text LrcOfChars(Text text);

}  // namespace commtest
