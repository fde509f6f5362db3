#include "simulator/behaviour.h"

#include <cmath>
#include <sstream>
#include <vector>

namespace simulator {

std::optional<Behaviour> Behaviour::Read(std::string_view words) {
    std::istringstream in{std::string(words)};
    std::string name;
    in >> name;
    std::vector<double> numbers;
    for (double number = 0; in >> number;) numbers.push_back(number);
    if (!in.eof()) return std::nullopt;
    const auto with = [&](Kind kind) { return Behaviour(kind, numbers[0], numbers[1], numbers[2]); };
    if (name == "constant" && numbers.size() == 1) return Constant(numbers[0]);
    if (name == "counter" && numbers.size() == 2) return Behaviour(Kind::Counter, numbers[0], numbers[1], 1);
    if (numbers.size() != 3) return std::nullopt;
    if (name == "walk" && numbers[2] >= 0) return with(Kind::Walk);
    if (numbers[2] <= 0) return std::nullopt;
    if (name == "ramp") return with(Kind::Ramp);
    if (name == "sine") return with(Kind::Sine);
    return std::nullopt;
}

double Behaviour::ValueAt(double seconds) const {
    const double span = to_ - from_;
    const double turn = seconds / third_ - std::floor(seconds / third_);
    switch (kind_) {
        case Kind::Constant: return from_;
        case Kind::Ramp: return from_ + span * (turn < 0.5 ? 2 * turn : 2 - 2 * turn);
        case Kind::Sine: return from_ + span * (0.5 + 0.5 * std::sin(2 * M_PI * turn));
        case Kind::Counter: return from_ + to_ * seconds;
        case Kind::Walk: break;
    }
    constexpr std::uint64_t kSecondsApart = 0x100000001;
    const auto second = static_cast<std::uint64_t>(std::floor(seconds));
    RandomStream random(second * kSecondsApart + static_cast<std::uint64_t>(third_));
    return from_ + span * random.Fraction();
}

// SplitMix64: one addition and three mixing steps a number.
std::uint64_t RandomStream::Next() {
    state_ += 0x9E3779B97F4A7C15ULL;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    return mixed ^ (mixed >> 31);
}

double RandomStream::Fraction() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }

int RandomStream::Between(int first, int last) {
    return first + static_cast<int>(Next() % static_cast<std::uint64_t>(last - first + 1));
}

}  // namespace simulator
