#include "simulator/value_codes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "simulator/text_fields.h"

namespace simulator {

namespace {

constexpr unsigned kWordSign = 0x8000;
constexpr unsigned kValueSign = 0x80;
constexpr unsigned kExponentSign = 0x40;
constexpr int kLargestExponent = 63;
constexpr int kMantissaBits = 24;
constexpr unsigned kLargestMantissa = 0xFFFFFF;
constexpr double kTotalUnit = 100;

std::uint64_t WholeWithin(double value, double highest) {
    return static_cast<std::uint64_t>(std::clamp(std::round(value), 0.0, highest));
}

std::string EncodeWhole(int length, double value) {
    const int bytes = std::min(length, 6);  // a double holds whole numbers of six bytes exactly
    return HexDigits(WholeWithin(value, std::ldexp(1, 8 * bytes) - 1), static_cast<std::size_t>(2 * length));
}

std::string EncodeWord(double value) {
    const std::uint64_t magnitude = WholeWithin(std::abs(value), kWordSign - 1);
    const std::uint64_t word = magnitude | (value < 0 && magnitude != 0 ? kWordSign : 0);
    return HexDigits(word % 256, 2) + HexDigits(word / 256, 2);
}

double DecodeWord(std::string_view code) {
    const unsigned word =
        ParseHex(code.substr(0, 2)).value_or(0) + 256 * ParseHex(code.substr(2, 2)).value_or(0);
    const auto magnitude = static_cast<double>(word & ~kWordSign);
    return (word & kWordSign) != 0 ? -magnitude : magnitude;
}

std::string EncodeFloat(double value) {
    int exponent = 0;
    auto mantissa = static_cast<unsigned>(std::ldexp(std::frexp(std::abs(value), &exponent), kMantissaBits));
    if (mantissa == 0 || exponent < -kLargestExponent) return "00000000";
    if (exponent > kLargestExponent) {
        exponent = kLargestExponent;
        mantissa = kLargestMantissa;
    }
    const unsigned head = (value < 0 ? kValueSign : 0) | (exponent < 0 ? kExponentSign : 0) |
                          static_cast<unsigned>(std::abs(exponent));
    return HexDigits(head, 2) + HexDigits(mantissa, 6);
}

double DecodeFloat(std::string_view code) {
    const unsigned head = ParseHex(code.substr(0, 2)).value_or(0);
    const auto exponent = static_cast<int>(head & ~(kValueSign | kExponentSign));
    const int signedExponent = (head & kExponentSign) != 0 ? -exponent : exponent;
    const double magnitude =
        std::ldexp(ParseHex(code.substr(2, 6)).value_or(0), signedExponent - kMantissaBits);
    return (head & kValueSign) != 0 ? -magnitude : magnitude;
}

std::string EncodeTotal(double value) {
    const double hundreds = std::trunc(value / kTotalUnit);
    return EncodeFloat(hundreds) + EncodeFloat(value - hundreds * kTotalUnit);
}

}  // namespace

std::string EncodeValue(int length, double value) {
    switch (length) {
        case 2: return EncodeWord(value);
        case 4: return EncodeFloat(value);
        case 8: return EncodeTotal(value);
        default: return EncodeWhole(length, value);
    }
}

double DecodeValue(int length, std::string_view code) {
    switch (length) {
        case 2: return DecodeWord(code);
        case 4: return DecodeFloat(code);
        case 8: return kTotalUnit * DecodeFloat(code.substr(0, 8)) + DecodeFloat(code.substr(8));
        default: break;
    }
    double value = 0;
    for (const char digit : code) value = 16 * value + ParseHex({&digit, 1}).value_or(0);
    return value;
}

}  // namespace simulator
