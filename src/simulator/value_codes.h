#pragma once

#include <string>
#include <string_view>

namespace simulator {

// A value as upper-case hexadecimal text of two characters a byte, by the length of its parameter in bytes:
//   1  whole number 0 to 255                                        200     C8
//   2  sign and magnitude, low byte first, -32767 to 32767          -1234   D284
//   4  float: a byte of value sign (80), exponent sign (40) and exponent of two, then three bytes of
//      mantissa in [0.5, 1), cut, not rounded                       100.5   07C90000
//   8  total: the hundreds and the rest, each as a float            1100.5  04B0000000800000
//   others: whole number, high byte first
// A value outside the range of its length becomes the nearest one inside; whole numbers are rounded.
std::string EncodeValue(int length, double value);

// The value of a code of the length's 2 * length hexadecimal digits.
double DecodeValue(int length, std::string_view code);

}  // namespace simulator
