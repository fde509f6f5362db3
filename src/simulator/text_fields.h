#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

std::string_view Trimmed(std::string_view text);  // without blanks, tabs and CR around it
std::vector<std::string_view> SplitFields(std::string_view text, char separator);  // each one trimmed
std::vector<std::string_view> SplitWords(std::string_view text);

// The whole text as a number; nothing where it is none.
std::optional<double> ParseNumber(std::string_view text);
std::optional<std::uint64_t> ParseWhole(std::string_view text);
std::optional<unsigned> ParseHex(std::string_view text);  // upper-case digits, at most eight

std::string HexDigits(std::uint64_t value, std::size_t width);  // upper case; the low `width` digits

}  // namespace simulator
