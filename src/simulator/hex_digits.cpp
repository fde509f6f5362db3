#include "simulator/hex_digits.h"

namespace simulator {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

}  // namespace

std::string HexOfBytes(std::string_view bytes) {
    std::string digits;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        digits += kDigits[byte / 16];
        digits += kDigits[byte % 16];
    }
    return digits;
}

std::optional<std::string> BytesOfHex(std::string_view digits) {
    if (digits.size() % 2 != 0 || digits.find_first_not_of(kDigits) != std::string_view::npos)
        return std::nullopt;
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes += static_cast<char>(kDigits.find(digits[i]) * 16 + kDigits.find(digits[i + 1]));
    }
    return bytes;
}

}  // namespace simulator
