#include "simulator/behaviour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "simulator/random.h"
#include "simulator/text_fields.h"

namespace simulator {

namespace {

constexpr double kMsPerSecond = 1000;

double Turns(std::int64_t timeMs, double period) {
    return static_cast<double>(timeMs) / (kMsPerSecond * period);
}

using Numbers = std::vector<double>;

struct Form {
    std::string_view name;
    std::size_t numberCount;
    bool endsInSeconds;
    Behaviour (*make)(const Numbers&);
};

constexpr std::array kForms = {
    Form{"constant", 1, false, [](const Numbers& n) { return Constant(n[0]); }},
    Form{"ramp", 3, true, [](const Numbers& n) { return Ramp(n[0], n[1], n[2]); }},
    Form{"sine", 3, true, [](const Numbers& n) { return Sine(n[0], n[1], n[2]); }},
    Form{"counter", 3, true, [](const Numbers& n) { return Counter(n[0], n[1], n[2]); }},
    Form{"walk", 4, false,
         [](const Numbers& n) {
             return RandomWalk(n[0], n[1], n[2], static_cast<std::uint64_t>(std::abs(n[3])));
         }},
};

}  // namespace

Behaviour Constant(double value) {
    return [value](std::int64_t) { return value; };
}

Behaviour Ramp(double low, double high, double period) {
    return [=](std::int64_t timeMs) {
        const double turns = Turns(timeMs, period);
        return low + (high - low) * (turns - std::floor(turns));
    };
}

Behaviour Sine(double middle, double amplitude, double period) {
    return [=](std::int64_t timeMs) {
        return middle + amplitude * std::sin(2 * std::numbers::pi * Turns(timeMs, period));
    };
}

Behaviour Counter(double start, double step, double interval) {
    return [=](std::int64_t timeMs) { return start + step * std::floor(Turns(timeMs, interval)); };
}

Behaviour RandomWalk(double low, double high, double step, std::uint64_t seed) {
    return [=, random = Random(seed), value = (low + high) / 2,
            second = std::int64_t{0}](std::int64_t timeMs) mutable {
        for (; second < timeMs / 1000; ++second) {
            value = std::clamp(value + step * (2 * random.Fraction() - 1), low, high);
        }
        return value;
    };
}

std::optional<Behaviour> ParseBehaviour(std::string_view text) {
    const std::vector<std::string_view> words = SplitWords(text);
    if (words.empty()) return std::nullopt;
    const auto* form = std::ranges::find(kForms, words.front(), &Form::name);
    if (form == kForms.end() || words.size() != form->numberCount + 1) return std::nullopt;
    Numbers numbers;
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        const auto number = ParseNumber(*word);
        if (!number) return std::nullopt;
        numbers.push_back(*number);
    }
    if (form->endsInSeconds && numbers.back() <= 0) return std::nullopt;
    if (form->name == "walk" && numbers[0] > numbers[1]) return std::nullopt;
    return form->make(numbers);
}

}  // namespace simulator
