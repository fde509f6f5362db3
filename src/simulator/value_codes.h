#pragma once

#include <optional>
#include <string>
#include <string_view>

// Values as the hexadecimal characters that an instrument sends, by their size in bytes:
//   1  one byte                                              200 "C8"
//   2  sign and magnitude, low byte first                  -1234 "D284"
//   4  float: sign, exponent sign and exponent; mantissa   100.5 "07C90000"
//   8  total: two such floats, the first in hundreds      1100.5 "04B0000000800000"
//   others: whole number, high byte first                     5 "000005"
namespace simulator {

// A value beyond the range of its size is held at the end of the range.
std::string CodeOfValue(double value, int size);

// Nothing for characters that are no code of that size.
std::optional<double> ValueOfCode(std::string_view code, int size);

}  // namespace simulator
