#include "numbers/custom_float.h"

#include <cmath>

#include "numbers/code_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

namespace bits = custom_float;

constexpr int kExponentRounds = 64;  // Q16: no check of the range behind them

}  // namespace

// Q17: the working value lives in text between the steps.
CustomFloatParts SplitIntoCustomFloat(double magnitude, bool isNegative) {
    int firstByte = isNegative ? bits::kNegative : 0;
    double x = RoundedToText(magnitude);
    for (int round = 0; round < kExponentRounds && x >= 1; ++round) {
        x = RoundedToText(x / 2);
        ++firstByte;
    }
    if (x < 0.5) {
        firstByte += bits::kNegativeExponent;
        int round = 0;
        do {
            x = RoundedToText(x + x);
            ++firstByte;
            ++round;
            // Q15: not "<", so that a power of two goes one round further, to 1.
        } while (round < kExponentRounds && x + x <= 1);
    }
    return {firstByte, x};
}

std::array<Text, 3> MantissaBytes(double mantissa) {
    std::array<Text, 3> bytes;
    double x = mantissa;
    for (Text& byte : bytes) {
        x = RoundedToText(x * 256);
        const double whole = std::floor(x);
        byte = CodeByteOf(whole);
        x = RoundedToText(x - whole);
    }
    return bytes;
}

void ValueToCustomFloat(Text& text) {
    const double value = ToNumber(text);
    if (value == 0) {
        text = u"00000000";
        return;
    }
    const CustomFloatParts parts = SplitIntoCustomFloat(std::fabs(value), value < 0);
    Text code = CodeByteOf(parts.firstByte);
    for (const Text& byte : MantissaBytes(parts.mantissa)) code += byte;
    text = code;
}

double CustomFloatMantissa(TextView code) {
    return CodeByteAt(code, 3) / 256.0 + CodeByteAt(code, 5) / 65536.0 + CodeByteAt(code, 7) / 16777216.0;
}

double CustomFloatValue(TextView code) {
    const int first = CodeByteAt(code, 1);
    const int magnitude = first & bits::kExponent;
    const int exponent = (first & bits::kNegativeExponent) == 0 ? magnitude : -magnitude;
    const double value = std::ldexp(CustomFloatMantissa(code), exponent);
    return (first & bits::kNegative) == 0 ? value : -value;
}

}  // namespace commtest
