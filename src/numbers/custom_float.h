#pragma once

#include <array>

#include "runtime/text.h"

// The instruments' own four-byte float, eight characters of code text:
//   byte A1  bit 7 sign of the value, bit 6 sign of the exponent (1 is negative), bits 5..0 exponent 0..63
//   bytes A2, A3, A4  mantissa A0 = A2/256 + A3/65536 + A4/16777216, 0.5 <= A0 < 1 for a normal value
// The value is sign * A0 * 2^exponent. 10 is 04A00000, -0.3 is C1999999.
namespace commtest {

// The bits of A1.
namespace custom_float {
inline constexpr int kNegative = 0x80;
inline constexpr int kNegativeExponent = 0x40;
inline constexpr int kExponent = 0x3F;
}  // namespace custom_float

// Number text to code text; exactly 0 gives 00000000. A power of two below 0.5 takes nine characters (0.25
// gives 421000000), a magnitude of 2^64 and more as many as it needs. Error 13 for a text that is no number,
// 6 where a byte leaves 32 bits.
void ValueToCustomFloat(Text& text);

// The value of eight characters; of a shorter code the missing pairs read as 0.
double CustomFloatValue(TextView code);
double CustomFloatMantissa(TextView code);  // A0 alone

// The two halves of the way out, also for who explains it. The mantissa lies in 0.5 to below 1 but for the
// values named above; zero, which ValueToCustomFloat does not bring here, runs through all 64 exponents.
struct CustomFloatParts {
    int firstByte;
    double mantissa;
};
CustomFloatParts SplitIntoCustomFloat(double magnitude, bool isNegative);

// A2, A3 and A4 of a mantissa, two digits each or more. Error 6 where one leaves 32 bits.
std::array<Text, 3> MantissaBytes(double mantissa);

}  // namespace commtest
