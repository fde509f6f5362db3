#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace simulator {

// How a value lives: its value at a time in milliseconds, which never goes back. Values are those of the
// line, before any decimal point. Periods and intervals are in seconds and above zero.
using Behaviour = std::function<double(std::int64_t timeMs)>;

Behaviour Constant(double value);
Behaviour Ramp(double low, double high, double period);  // up from low to high, then anew
Behaviour Sine(double middle, double amplitude, double period);
Behaviour Counter(double start, double step, double interval);  // one step at the end of each interval
Behaviour RandomWalk(double low, double high, double step,
                     std::uint64_t seed);  // from the middle, each second

// The forms of a description, as a message or a page shows them.
inline constexpr std::string_view kBehaviourForms =
    "constant VALUE, ramp LOW HIGH SECONDS, sine MIDDLE AMPLITUDE SECONDS, "
    "counter START STEP SECONDS or walk LOW HIGH STEP SEED";

std::optional<Behaviour> ParseBehaviour(std::string_view text);

}  // namespace simulator
