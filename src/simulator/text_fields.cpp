#include "simulator/text_fields.h"

#include <charconv>
#include <cmath>

namespace simulator {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

template <typename Number>
std::optional<Number> ParseAll(std::string_view text) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return number;
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> SplitFields(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    while (true) {
        const std::size_t end = text.find(separator);
        fields.push_back(Trimmed(text.substr(0, end)));
        if (end == std::string_view::npos) return fields;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string_view> SplitWords(std::string_view text) {
    std::vector<std::string_view> words;
    for (const std::string_view word : SplitFields(text, ' ')) {
        if (!word.empty()) words.push_back(word);
    }
    return words;
}

std::optional<double> ParseNumber(std::string_view text) {
    const auto number = ParseAll<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<std::uint64_t> ParseWhole(std::string_view text) { return ParseAll<std::uint64_t>(text); }

std::optional<unsigned> ParseHex(std::string_view text) {
    if (text.empty() || text.size() > 8) return std::nullopt;
    unsigned value = 0;
    for (const char digit : text) {
        const std::size_t place = kHexDigits.find(digit);
        if (place == std::string_view::npos) return std::nullopt;
        value = value * 16 + static_cast<unsigned>(place);
    }
    return value;
}

std::string HexDigits(std::uint64_t value, std::size_t width) {
    std::string digits(width, '0');
    for (std::size_t place = width; place > 0 && value != 0; value /= 16)
        digits[--place] = kHexDigits[value % 16];
    return digits;
}

}  // namespace simulator
