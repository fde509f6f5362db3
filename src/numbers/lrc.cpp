#include "numbers/lrc.h"

#include <cstdint>

#include "runtime/code_page.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kByteRange = 256;

// Q28: wherever the colon stands.
void DropColon(Text& text) {
    if (Contains(text, u":")) text.erase(0, 1);
}

Text TwoDigits(int value) { return FittedToWidth(HexOf(value), 2); }

}  // namespace

Text LrcOfPairs(Text text) {
    DropColon(text);
    const std::int16_t pairs = Whole16(Len(text) / 2.0);  // Q27: half to even
    std::int16_t sum = 0;
    for (int pair = 1; pair <= pairs; ++pair) sum = Add16(sum, HexParse(Mid(text, 2 * pair - 1, 2)));
    const int complement = kByteRange - sum % kByteRange;
    // Q26: 256 keeps its three digits.
    return complement == kByteRange ? Text(u"100") : TwoDigits(complement);
}

Text LrcOfChars(Text text) {
    DropColon(text);
    std::int16_t sum = 0;
    for (const char16_t character : text) sum = Add16(sum, CharacterCode(character));
    return TwoDigits((kByteRange - sum % kByteRange) % kByteRange);
}

}  // namespace commtest
