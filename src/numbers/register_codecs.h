#pragma once

#include "runtime/text.h"

namespace commtest {

// The number formats of the instruments' registers. Characters 3 and 4 of a Modbus instrument's 编号 are such
// a number; any other number leaves a text unchanged in both directions.
namespace register_format {
inline constexpr int kSignMagnitudeSwapped = 0;  // two bytes, 原码, low byte first
inline constexpr int kTwosComplement = 1;        // two bytes, 补码
inline constexpr int kCustomFloat = 2;           // numbers/custom_float.h
inline constexpr int kIeeeSingle = 3;            // numbers/ieee_single.h
inline constexpr int kBcd = 5;                   // numbers/bcd.h
inline constexpr int kSignMagnitude = 6;         // two bytes, 原码, high byte first
inline constexpr int kOneByte = 7;
inline constexpr int kAccumulated = 8;          // reads only: two custom floats, the first one a hundredfold
inline constexpr int kPlainHex = 9;             // reads only
inline constexpr int kIeeeSingleReadOnly = 11;  // reads only
inline constexpr int kUneven = 12;              // writes sign and magnitude, reads two's complement
}  // namespace register_format

// Rewrite the text in place: number text (decimal, as a user types it or a cell shows it) to code text
// (hexadecimal without blanks) and back. A value out of range loses its high digits without an error. Errors:
// 13 for a text that is no number, 6 for an overflow; the text then stays as it stood at that step.
// kSignMagnitudeSwapped also reads one byte of 2 characters and a custom float of 8, and leaves a code of any
// other length; the other formats take the characters that they need, missing ones as 0.
void ValueToCommCode(Text& text, int formatNumber);
void CommCodeToValue(Text& text, int formatNumber);

// The same conversions without a format number. Direction -1, code to value, goes by the length of the text:
// up to 2 characters one byte, to 4 kSignMagnitudeSwapped, to 8 kCustomFloat with at most six characters.
// Direction 0, value to code, goes by the element size in bytes, 1, 2 or 4; it fills a single byte but does
// not cut it. Every other direction, length and size changes nothing. Errors 13 and 6 as above.
void ConvertCommCodeAuto(Text& text, int direction, int size);

}  // namespace commtest
