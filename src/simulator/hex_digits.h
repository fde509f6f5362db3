#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// Bytes as pairs of upper-case hexadecimal digits, and back; nothing for a text that is none.
std::string HexOfBytes(std::string_view bytes);
std::optional<std::string> BytesOfHex(std::string_view digits);

}  // namespace simulator
