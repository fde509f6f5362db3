#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// How a value lives: a function of the time alone, so that a run can be repeated.
//   constant V              ramp FROM TO SECONDS      (up, then down again)
//   sine FROM TO SECONDS    counter FROM PER_SECOND
//   walk FROM TO SEED       (a new value each second)
class Behaviour {
  public:
    static Behaviour Constant(double value) { return {Kind::Constant, value, value, 1}; }

    // Reads the words above; nothing if they are none of these.
    static std::optional<Behaviour> Read(std::string_view words);

    double ValueAt(double seconds) const;

  private:
    enum class Kind { Constant, Ramp, Sine, Counter, Walk };

    Behaviour(Kind kind, double from, double to, double third)
        : kind_(kind), from_(from), to_(to), third_(third) {}

    Kind kind_;
    double from_;
    double to_;
    double third_;  // seconds of a period, or the seed
};

// A repeatable stream of random numbers.
class RandomStream {
  public:
    explicit RandomStream(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next();
    double Fraction();                 // in [0, 1)
    int Between(int first, int last);  // both included

  private:
    std::uint64_t state_;
};

}  // namespace simulator
