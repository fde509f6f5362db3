#include "simulator/value_codes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace simulator {

namespace {

std::string HexByte(unsigned byte) {
    char text[4];
    std::snprintf(text, sizeof text, "%02X", byte & 0xFFU);
    return text;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::optional<unsigned> ByteAt(std::string_view code, std::size_t index) {
    const int high = HexDigit(code[2 * index]);
    const int low = HexDigit(code[2 * index + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    return static_cast<unsigned>(high * 16 + low);
}

std::string SignAndMagnitude(double value) {
    constexpr double kLargest = 32767;
    const auto magnitude = static_cast<unsigned>(std::min(std::round(std::fabs(value)), kLargest));
    const unsigned word = magnitude | (value < 0 && magnitude != 0 ? 0x8000U : 0U);
    return HexByte(word) + HexByte(word >> 8);
}

constexpr unsigned kNegative = 128;
constexpr unsigned kNegativeExponent = 64;
constexpr double kMantissaUnits = 16777216;  // of three bytes

std::string Float(double value) {
    int exponent = 0;
    const double mantissa = std::frexp(std::fabs(value), &exponent);
    if (mantissa == 0) return "00000000";
    const unsigned lead = (value < 0 ? kNegative : 0) + (exponent < 0 ? kNegativeExponent : 0) +
                          static_cast<unsigned>(std::min(std::abs(exponent), 63));
    const auto units = static_cast<unsigned>(std::floor(mantissa * kMantissaUnits));
    return HexByte(lead) + HexByte(units >> 16) + HexByte(units >> 8) + HexByte(units);
}

std::string Total(double value) {
    const double hundreds = std::floor(value / 100);
    return Float(hundreds) + Float(value - hundreds * 100);
}

std::string WholeNumber(double value, int size) {
    const double largest = std::ldexp(1.0, std::min(8 * size, 53)) - 1;  // of what a double holds exactly
    auto number = static_cast<std::uint64_t>(std::clamp(std::round(value), 0.0, largest));
    std::string code;
    for (int i = 0; i < size; ++i, number /= 256)
        code.insert(0, HexByte(static_cast<unsigned>(number % 256)));
    return code;
}

std::optional<double> ValueOfWholeNumber(std::string_view code) {
    double value = 0;
    for (std::size_t i = 0; i < code.size() / 2; ++i) {
        const auto byte = ByteAt(code, i);
        if (!byte) return std::nullopt;
        value = value * 256 + *byte;
    }
    return value;
}

std::optional<double> ValueOfFloat(std::string_view code) {
    unsigned bytes[4];
    for (std::size_t i = 0; i < 4; ++i) {
        const auto byte = ByteAt(code, i);
        if (!byte) return std::nullopt;
        bytes[i] = *byte;
    }
    const double mantissa = (bytes[1] * 65536.0 + bytes[2] * 256.0 + bytes[3]) / kMantissaUnits;
    const int magnitude = static_cast<int>(bytes[0] & 63);
    const double value = std::ldexp(mantissa, bytes[0] & kNegativeExponent ? -magnitude : magnitude);
    return bytes[0] & kNegative ? -value : value;
}

std::optional<double> ValueOfWord(std::string_view code) {
    const auto low = ByteAt(code, 0);
    const auto high = ByteAt(code, 1);
    if (!low || !high) return std::nullopt;
    const double magnitude = *low + 256.0 * (*high & 0x7F);
    return *high & 0x80 ? -magnitude : magnitude;
}

}  // namespace

std::string CodeOfValue(double value, int size) {
    switch (size) {
        case 2: return SignAndMagnitude(value);
        case 4: return Float(value);
        case 8: return Total(value);
        default: return WholeNumber(value, size);
    }
}

std::optional<double> ValueOfCode(std::string_view code, int size) {
    if (code.size() != 2 * static_cast<std::size_t>(size)) return std::nullopt;
    switch (size) {
        case 2: return ValueOfWord(code);
        case 4: return ValueOfFloat(code);
        case 8: {
            const auto hundreds = ValueOfFloat(code.substr(0, 8));
            const auto rest = ValueOfFloat(code.substr(8));
            if (!hundreds || !rest) return std::nullopt;
            return *hundreds * 100 + *rest;
        }
        default: return ValueOfWholeNumber(code);
    }
}

}  // namespace simulator
