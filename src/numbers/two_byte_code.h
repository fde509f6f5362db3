#pragma once

#include "runtime/text.h"

// Whole numbers of one and two bytes. Errors of the outward routines: 13 for a text that is no number, 6
// beyond 32 bits; the text then stays as it stood at that step.
namespace commtest {

// Number text to four characters of sign and magnitude (原码), high byte first; bit 15 is the sign. A value
// out of range loses its high digits.
void ValueToSignMagnitude(Text& text);

// Number text to two's complement (补码) of `width` characters. A value out of range loses its high digits.
void ValueToTwosComplement(Text& text, int width);

// The number text of two bytes of sign and magnitude; the code 8000 reads as "-0".
Text SignMagnitudeValue(int highByte, int lowByte);

}  // namespace commtest
