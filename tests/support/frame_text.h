#pragma once

#include <sstream>
#include <string>
#include <string_view>

#include "runtime/hex_text.h"

namespace commtest::testing {

// Bytes of hexadecimal pairs, and back: "40 30 31".
inline std::string BytesOfHex(const std::string& hex) {
    std::string bytes;
    std::istringstream pairs(hex);
    for (std::string pair; pairs >> pair;) bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    return bytes;
}

inline std::string HexOfBytes(const std::string& bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        if (!hex.empty()) hex += ' ';
        hex += kDigits[value >> 4];
        hex += kDigits[value & 0xF];
    }
    return hex;
}

// A frame as the engineer reads it, "@01RD17\r", as HexText, and back.
inline HexText FrameOf(std::string_view characters) {
    HexText frame;
    for (const char character : characters) AppendHexByte(frame, static_cast<unsigned char>(character));
    return frame;
}
inline std::string CharactersOf(const HexText& frame) { return BytesOfHex(ToUtf8(frame)); }

}  // namespace commtest::testing
