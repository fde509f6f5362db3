#pragma once

#include "runtime/text.h"

// Code text: a value as it stands in a frame, two upper-case hexadecimal characters a byte without blanks
// between (unlike HexText).
namespace commtest {

// The byte whose two characters begin at a 1-based position; what lies beyond the end of the text reads as 0.
int CodeByteAt(TextView code, int position);

// The second pair of characters, then the first; what stands behind the two is dropped.
void SwapTwoBytes(Text& code);

// A value as hexadecimal of at least two digits, more where it takes them. Error 6 beyond 32 bits.
Text CodeByteOf(double value);

}  // namespace commtest
