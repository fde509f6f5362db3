#include "numbers/custom_float.h"

#include <cmath>

#include "numbers/code_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kNegative = 0x80;
constexpr int kNegativeExponent = 0x40;
constexpr int kExponentRounds = 64;
constexpr int kMantissaBytes = 3;

// The working value lives in text between the steps, which decides the last digits of the code.
double ThroughText(double value) { return ToNumber(NumberText(value)); }

struct Normalised {
    int firstByte;    // signs and exponent
    double mantissa;  // 0.5 to below 1, but for the values that the header tells of
};

Normalised Normalise(double value) {
    int firstByte = value < 0 ? kNegative : 0;
    double x = ThroughText(std::fabs(value));
    for (int round = 0; round < kExponentRounds && x >= 1; ++round) {
        x = ThroughText(x / 2);
        ++firstByte;
    }
    if (x < 0.5) {
        firstByte += kNegativeExponent;
        int round = 0;
        do {
            x = ThroughText(x + x);
            ++firstByte;
            ++round;
            // Not "<": a power of two goes one round further, to 1, and gets its nine characters; they are
            // what the instruments are sent.
        } while (round < kExponentRounds && x + x <= 1);
    }
    return {firstByte, x};
}

}  // namespace

void ValueToCustomFloat(Text& text) {
    const double value = ToNumber(text);
    if (value == 0) {
        text = u"00000000";
        return;
    }
    const Normalised normalised = Normalise(value);
    Text code = CodeByteOf(normalised.firstByte);
    double x = normalised.mantissa;
    for (int i = 0; i < kMantissaBytes; ++i) {
        x = ThroughText(x * 256);
        const double byte = std::floor(x);
        code += CodeByteOf(byte);
        x = ThroughText(x - byte);
    }
    text = code;
}

double CustomFloatValue(TextView code) {
    const int first = CodeByteAt(code, 1);
    const double mantissa =
        CodeByteAt(code, 3) / 256.0 + CodeByteAt(code, 5) / 65536.0 + CodeByteAt(code, 7) / 16777216.0;
    const int magnitude = first & (kNegativeExponent - 1);
    const int exponent = (first & kNegativeExponent) == 0 ? magnitude : -magnitude;
    const double value = std::ldexp(mantissa, exponent);
    return (first & kNegative) == 0 ? value : -value;
}

}  // namespace commtest
