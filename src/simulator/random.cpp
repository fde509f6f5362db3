#include "simulator/random.h"

namespace simulator {

std::uint64_t Random::Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
}

double Random::Fraction() { return static_cast<double>(Next() >> 11) / 9007199254740992.0; }  // 2^53

int Random::Between(int low, int high) {
    const auto count = static_cast<double>(high) - low + 1;
    return low + static_cast<int>(Fraction() * count);
}

bool Random::Happens(double rate) { return Fraction() < rate; }

}  // namespace simulator
