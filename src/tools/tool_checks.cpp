#include "tools/tool_checks.h"

#include "numbers/code_text.h"
#include "numbers/crc16.h"
#include "runtime/code_page.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

Text Crc16OfByteArray(const std::vector<std::uint8_t>& bytes, int lastIndex) {
    if (lastIndex >= static_cast<int>(bytes.size())) throw RuntimeError(RuntimeError::kSubscript);
    Crc16 crc;
    for (int i = 0; i <= lastIndex; ++i) crc.Fold(bytes[static_cast<std::size_t>(i)]);
    return CodeByteOf(crc.First()) + CodeByteOf(crc.Second());
}

std::optional<Text> Crc16OfHexText(HexText text) {
    constexpr int kByteWidth = 3;
    constexpr int kHighDigit = 0x90;
    if (HexPairValue(Left(text, 1))) EnsureLeadingBlank(text);
    Crc16 crc(0, 0);  // Q189: not from FF
    for (int blank = 1; blank <= Len(text); blank += kByteWidth) {
        const auto value = HexPairValue(Mid(text, blank + 1, 2));
        if (!value) return std::nullopt;
        crc.Fold(static_cast<std::uint8_t>(*value));
    }
    const int both = crc.First() ^ crc.Second();
    return CodeByteOf(kHighDigit | (both & 0xF)) + u" " + CodeByteOf(kHighDigit | both >> 4);
}

Text AppendXorCheck(Text& text) {
    constexpr int kShortest = 3;
    if (Len(text) < kShortest) return {};
    text.erase(0, 1);  // Q190: whatever it is
    int value = 0;
    for (const char16_t character : text) value ^= CharacterCode(character);
    const Text check = CodeByteOf(value);
    text = u"@" + text + check + u"\r";
    return check;
}

}  // namespace commtest
