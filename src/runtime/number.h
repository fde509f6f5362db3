#pragma once

#include <cstdint>
#include <optional>

#include "runtime/text.h"

// The only place that turns text into numbers and back.
namespace commtest {

// --- Text to number ---

// A decimal number, with sign, point and exponent (E) where it has them; blanks around it do not count.
// Error 13 if it is none, also for the empty text; error 6 beyond the range of a double.
double ToNumber(TextView text);

// The number that a text begins with, 0 if it begins with none.
int LeadingWholeNumber(TextView text);

// A whole number out of a decimal text, rounded half to even. Errors 13 and 6 (beyond the width).
std::int16_t ToWhole16(TextView text);
std::int32_t ToWhole32(TextView text);

// A hexadecimal literal. One to four digits read as a signed 16-bit number, more as a signed 32-bit one (of
// more than eight the low 32 bits). Reading stops at the first other character; no digits read as 0.
std::int32_t HexParse(TextView text);

// The value of a pair of a frame: one or two hexadecimal digits followed only by blanks.
std::optional<int> HexPairValue(TextView pair);

// --- Number to text ---

// At most 15 significant digits (7 of a single), correctly rounded, ties to even; no zero before the point;
// exponent form from 1E+15 (1E+07) upward and below 1E-04. Negative zero gives "0".
Text NumberText(double value);
Text SingleText(float value);
Text WholeText(std::int64_t value);

// A finite value as its number text has it, without the text in between; negative zero stays. Error 6 where
// the text leaves the range of a double.
double RoundedToText(double value);

// Upper-case hexadecimal without leading zeros, of the number rounded half to even to a signed 32-bit one; a
// negative value gives eight digits. Error 6 beyond 32 bits, error 13 for a text that is no number.
Text HexOf(double value);
Text HexOf(TextView text);

// Fixed point with `decimals` digits (0 or more), the 15-digit decimal text rounded half away from zero. A
// negative value that rounds to zero keeps its sign. FixedText has no zero before the point (.50),
// FixedTextWithZero has it (0.50), GroupedText has it and a comma every three digits (1,234.50).
Text FixedText(double value, int decimals);
Text FixedTextWithZero(double value, int decimals);
Text GroupedText(double value, int decimals);

// --- Sums that stay inside their width, error 6 beyond it ---

double RoundHalfEven(double value);
std::int16_t Whole16(double value);  // rounds half to even
std::int32_t Whole32(double value);
std::int16_t Add16(std::int16_t a, int b);
std::int32_t Add32(std::int32_t a, std::int32_t b);
std::int32_t Multiply32(std::int32_t a, std::int32_t b);

// A result of double arithmetic: error 6 if it left the range of a double.
double Finite(double value);

}  // namespace commtest
