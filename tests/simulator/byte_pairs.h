#pragma once

#include <cstdlib>
#include <sstream>
#include <string>

#include "simulator/hex_digits.h"

namespace simulator {

// Bytes as pairs behind blanks, "01 03 00", as the tests write them.
inline std::string FromPairs(const std::string& pairs) {
    std::istringstream in(pairs);
    std::string bytes;
    for (std::string pair; in >> pair;) bytes += static_cast<char>(std::strtol(pair.c_str(), nullptr, 16));
    return bytes;
}

inline std::string Pairs(const std::string& bytes) {
    std::string pairs;
    for (const char byte : bytes) pairs += (pairs.empty() ? "" : " ") + HexOfBytes({&byte, 1});
    return pairs;
}

}  // namespace simulator
