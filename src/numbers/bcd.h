#pragma once

#include "runtime/text.h"

// Binary-coded decimal, ten characters of code text:
//   1      always 0
//   2      bit 3 sign (1 is negative), bits 2..0 number of decimals
//   3..10  eight decimal digits of the magnitude, the point removed
// 12.34 is 0200001234, -12.3 is 0900000123. What one direction writes the other cannot always read: see each.
namespace commtest {

// Number text to code text. Everything from 0 to below 1 gives ten zeros. The decimals are those of the text
// as typed: 12.50 gives 0200001250; a sum of sign and decimals of 16 and more makes an eleventh character.
// More than eight digits lose the first ones. Error 13 for a text that is no number, 6 beyond the range of a
// double; the text then stays as it stood at that step.
void ValueToBcd(Text& text);

// Code text to number text, with as many decimals as the code says. Error 13 for a letter in position 2 (a
// negative value of two and more decimals) or among the digits.
void BcdToValue(Text& text);

}  // namespace commtest
