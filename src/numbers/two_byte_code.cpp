#include "numbers/two_byte_code.h"

#include <cmath>

#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kSignBit = 0x8000;

}  // namespace

void ValueToSignMagnitude(Text& text) {
    const double value = ToNumber(text);
    // Q8: a negative fraction is cut here, a positive one is rounded by HexOf.
    if (value < 0) text = NumberText(std::trunc(-value) + kSignBit);
    text = FittedToWidth(HexOf(text), 4);  // Q10: without an error
}

void ValueToTwosComplement(Text& text, int width) {
    text = FittedToWidth(HexOf(std::floor(ToNumber(text))), width);  // Q10: without an error
}

Text SignMagnitudeValue(int highByte, int lowByte) {
    const int value = 256 * highByte + lowByte;
    // Q9: the sign bit alone is "-0".
    return value < kSignBit ? WholeText(value) : u"-" + WholeText(value - kSignBit);
}

}  // namespace commtest
