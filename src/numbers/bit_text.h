#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace commtest {

// How PadWideText fills; other modes add nothing.
inline constexpr int kBlanksOnTheRight = 1;
inline constexpr int kBlanksOnTheLeft = 2;
inline constexpr int kZerosOnTheLeft = 3;

// Fills a text up to a width in which a double-byte character of code page 936 counts as two. A longer text
// is not cut.
void PadWideText(Text& text, int width, int mode);

// A byte, 0 to 255, as eight characters "0" and "1", most significant first.
Text ByteToBitText(int byte);

// The number of a text of bits, of a longer one the last eight. Each digit is read as a number and weighted
// 128 down to 1; error 13 for a character that is no digit.
std::int16_t BitTextToByte(const Text& bits);

}  // namespace commtest
