#pragma once

#include <cstdint>

namespace simulator {

// Pseudo-random numbers (SplitMix64) that are the same for a seed on every machine.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next();
    double Fraction();               // in [0, 1)
    int Between(int low, int high);  // both ends included
    bool Happens(double rate);       // true at the given rate, 0 to 1

  private:
    std::uint64_t state_;
};

}  // namespace simulator
