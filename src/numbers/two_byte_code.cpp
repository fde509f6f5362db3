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
    // A negative fraction is cut here, a positive one is rounded by HexOf: the instruments' format has it so.
    if (value < 0) text = NumberText(std::trunc(-value) + kSignBit);
    text = FittedToWidth(HexOf(text), 4);
}

void ValueToTwosComplement(Text& text, int width) {
    text = FittedToWidth(HexOf(std::floor(ToNumber(text))), width);
}

Text SignMagnitudeValue(int highByte, int lowByte) {
    const int value = 256 * highByte + lowByte;
    return value < kSignBit ? WholeText(value) : u"-" + WholeText(value - kSignBit);
}

}  // namespace commtest
