#include "simulator/register_codes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "simulator/framing.h"
#include "simulator/hex_digits.h"
#include "simulator/value_codes.h"

namespace simulator {

namespace {

constexpr int kPackedDecimalCode = 22;

// The low `size` bytes of a number, high one first.
std::string BytesOfNumber(std::uint64_t number, int size) {
    std::string bytes;
    for (int i = size - 1; i >= 0; --i) bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
    return bytes;
}

std::uint64_t NumberOfBytes(std::string_view bytes) {
    std::uint64_t number = 0;
    for (const char c : bytes) number = number * 256 + static_cast<unsigned char>(c);
    return number;
}

std::string TwosComplement(double value, int size) {
    const double end = std::ldexp(1.0, 8 * std::min(size, 6) - 1);
    const auto number = static_cast<std::int64_t>(std::clamp(std::round(value), -end, end - 1));
    return BytesOfNumber(static_cast<std::uint64_t>(number), size);
}

double ValueOfTwosComplement(std::string_view bytes) {
    const auto number = static_cast<double>(NumberOfBytes(bytes));
    const double range = std::ldexp(1.0, 8 * static_cast<int>(bytes.size()));
    return number >= range / 2 ? number - range : number;
}

std::string LowBytes(double value, int size) {
    const double end = std::ldexp(1.0, 4 * size);
    const auto number = static_cast<std::uint64_t>(std::clamp(std::round(value), 0.0, end - 1));
    std::string bytes;
    for (const char low : BytesOfNumber(number, size / 2)) bytes += {'\0', low};
    return bytes;
}

std::optional<double> ValueOfLowBytes(std::string_view bytes) {
    std::string low;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        if (bytes[i] != '\0') return std::nullopt;
        low += bytes[i + 1];
    }
    return static_cast<double>(NumberOfBytes(low));
}

std::string PackedDecimal(double value, int size) {
    constexpr int kMostDecimals = 3;
    constexpr int kNegative = 8;
    constexpr double kThousand = 1000;
    const double largest = std::pow(10.0, 2 * (size - 1)) - 1;
    auto digits = static_cast<std::int64_t>(std::round(std::fabs(value) * kThousand));
    int decimals = kMostDecimals;
    for (; decimals > 0 && (digits % 10 == 0 || static_cast<double>(digits) > largest); --decimals)
        digits /= 10;
    std::string text = std::to_string(std::min(digits, static_cast<std::int64_t>(largest)));
    text.insert(0, 2 * static_cast<std::size_t>(size - 1) - text.size(), '0');
    const int head = decimals + (value < 0 ? kNegative : 0);
    return static_cast<char>(head) + BytesOfHex(text).value();
}

std::string SwappedWords(std::string_view bytes) {
    return std::string(bytes.substr(2, 2)) + std::string(bytes.substr(0, 2));
}

std::string IeeeSingle(double value) {
    return BytesOfNumber(std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
}

std::optional<double> ValueOfIeeeSingle(std::string_view bytes) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(NumberOfBytes(bytes.substr(0, 4))));
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

std::string SwappedBytes(std::string_view bytes) { return {bytes[1], bytes[0]}; }

std::string SwappedSignMagnitude(double value) { return BytesOfHex(CodeOfValue(value, 2)).value(); }

std::string Coded(double value, RegisterForm form, int size) {
    switch (form) {
        case RegisterForm::TwosComplement: return TwosComplement(value, size);
        case RegisterForm::SignMagnitude: return SwappedBytes(SwappedSignMagnitude(value));
        case RegisterForm::SwappedSignMagnitude: return SwappedSignMagnitude(value);
        case RegisterForm::OneByte: return BytesOfHex(CodeOfValue(value, 1)).value();
        case RegisterForm::IeeeSingle: return IeeeSingle(value);
        case RegisterForm::SwappedIeeeSingle: return SwappedWords(IeeeSingle(value));
        case RegisterForm::HouseFloat: return BytesOfHex(CodeOfValue(value, 4)).value();
        case RegisterForm::LowBytes: return LowBytes(value, size);
        case RegisterForm::PackedDecimal: break;
    }
    return PackedDecimal(value, size);
}

RegisterForm FormOfFourBytes(int format) {
    switch (format) {
        case 1: return RegisterForm::TwosComplement;
        case 3: return RegisterForm::IeeeSingle;
        case 11: return RegisterForm::SwappedIeeeSingle;
        default: return RegisterForm::HouseFloat;
    }
}

}  // namespace

bool IsKnownFormat(const Model& model) {
    constexpr int kFormats[] = {0, 1, 2, 3, 6, 7, 11};
    return FramingOf(model.code) != Framing::ModbusRtu ||
           std::find(std::begin(kFormats), std::end(kFormats), model.format) != std::end(kFormats);
}

RegisterForm FormOf(const Model& model, const Parameter& parameter) {
    if (model.code == kPackedDecimalCode) return RegisterForm::PackedDecimal;
    if (FramingOf(model.code) == Framing::ModbusAscii) {
        return parameter.attribute == "RW" ? RegisterForm::LowBytes : RegisterForm::TwosComplement;
    }
    if (parameter.length == "1" || model.format == 7) return RegisterForm::OneByte;
    if (parameter.length != "2") return FormOfFourBytes(model.format);
    if (model.format == 0) return RegisterForm::SwappedSignMagnitude;
    return model.format == 6 ? RegisterForm::SignMagnitude : RegisterForm::TwosComplement;
}

std::string BytesOfValue(double value, RegisterForm form, int size) {
    std::string bytes = Coded(value, form, size);
    bytes.resize(static_cast<std::size_t>(size), '\0');
    return bytes;
}

std::optional<double> ValueOfBytes(std::string_view bytes, RegisterForm form) {
    switch (form) {
        case RegisterForm::TwosComplement: return ValueOfTwosComplement(bytes);
        case RegisterForm::SignMagnitude: return ValueOfCode(HexOfBytes(SwappedBytes(bytes)), 2);
        case RegisterForm::SwappedSignMagnitude: return ValueOfCode(HexOfBytes(bytes), 2);
        case RegisterForm::OneByte: return static_cast<unsigned char>(bytes[0]);
        case RegisterForm::IeeeSingle: return ValueOfIeeeSingle(bytes);
        case RegisterForm::SwappedIeeeSingle: return ValueOfIeeeSingle(SwappedWords(bytes));
        case RegisterForm::HouseFloat: return ValueOfCode(HexOfBytes(bytes.substr(0, 4)), 4);
        case RegisterForm::LowBytes: return ValueOfLowBytes(bytes);
        case RegisterForm::PackedDecimal: break;
    }
    return std::nullopt;
}

}  // namespace simulator
