#include "simulator/line_settings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace simulator {

namespace {

constexpr int kRates[] = {1200, 2400, 4800, 9600, 19200, 28800, 38400, 57600};

bool IsNamed(const Parameter& parameter, const char* word) {
    return parameter.name.find(word) != std::string::npos;
}

}  // namespace

bool HoldsAddress(const Parameter& parameter) { return IsNamed(parameter, "仪表地址"); }

bool HoldsRate(const Parameter& parameter) { return IsNamed(parameter, "波特率"); }

std::optional<int> RateOfCode(double code) {
    const long number = std::lround(code);
    if (number < 0 || number >= std::ssize(kRates)) return std::nullopt;
    return kRates[number];
}

std::optional<int> CodeOfRate(int rate) {
    const auto found = std::find(std::begin(kRates), std::end(kRates), rate);
    if (found == std::end(kRates)) return std::nullopt;
    return static_cast<int>(found - std::begin(kRates));
}

}  // namespace simulator
