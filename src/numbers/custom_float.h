#pragma once

#include "runtime/text.h"

// The instruments' own four-byte float, eight characters of code text:
//   byte A1  bit 7 sign of the value, bit 6 sign of the exponent (1 is negative), bits 5..0 exponent 0..63
//   bytes A2, A3, A4  mantissa A0 = A2/256 + A3/65536 + A4/16777216, 0.5 <= A0 < 1 for a normal value
// The value is sign * A0 * 2^exponent. 10 is 04A00000, -0.3 is C1999999.
namespace commtest {

// Number text to code text; exactly 0 gives 00000000. A power of two below 0.5 takes nine characters (0.25
// gives 421000000), a magnitude of 2^64 and more as many as it needs. Error 13 for a text that is no number,
// 6 where a byte leaves 32 bits.
void ValueToCustomFloat(Text& text);

// The value of eight characters; of a shorter code the missing pairs read as 0.
double CustomFloatValue(TextView code);

}  // namespace commtest
