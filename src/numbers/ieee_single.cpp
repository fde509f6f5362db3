#include "numbers/ieee_single.h"

#include <bit>
#include <cstdint>

#include "numbers/code_text.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

void ValueToIeeeSingle(Text& text) {
    const double value = ToNumber(text);
    if (value == 0) {
        text = u"00000000";
        return;
    }
    const auto single = static_cast<float>(value);
    Finite(single);
    text = FittedToWidth(HexOf(std::bit_cast<std::int32_t>(single)), 8);
}

float IeeeSingleValue(TextView code) {
    std::uint32_t bits = 0;
    for (int position = 1; position <= 7; position += 2) {
        bits = bits << 8 | static_cast<std::uint32_t>(CodeByteAt(code, position));
    }
    const auto single = std::bit_cast<float>(bits);
    Finite(single);
    return single;
}

}  // namespace commtest
