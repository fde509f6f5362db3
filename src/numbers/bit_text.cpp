#include "numbers/bit_text.h"

#include <algorithm>

#include "runtime/code_page.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kBits = 8;

bool IsDoubleByte(char16_t character) { return CharacterCode(character) > 0xFF; }

}  // namespace

void PadWideText(Text& text, int width, int mode) {
    const auto doubleBytes = static_cast<int>(std::count_if(text.begin(), text.end(), IsDoubleByte));
    const auto missing = static_cast<std::size_t>(std::max(width - doubleBytes - Len(text), 0));
    if (mode == kBlanksOnTheRight) text.append(missing, u' ');
    if (mode == kBlanksOnTheLeft) text.insert(0, missing, u' ');
    if (mode == kZerosOnTheLeft) text.insert(0, missing, u'0');
}

Text ByteToBitText(int byte) {
    Text bits;
    for (int bit = kBits - 1; bit >= 0; --bit) bits += (byte >> bit & 1) == 0 ? u'0' : u'1';
    return bits;
}

std::int16_t BitTextToByte(const Text& bits) {
    int value = 0;
    for (char16_t digit : FittedToWidth(bits, kBits)) value = 2 * value + ToWhole16({&digit, 1});
    return static_cast<std::int16_t>(value);
}

}  // namespace commtest
