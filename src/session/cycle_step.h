#pragma once

#include <cstdint>

// What MainForm::CycleStep says the next tick of the polling cycle does.
namespace commtest::cycle_step {

inline constexpr std::int16_t kIdle = 0;
inline constexpr std::int16_t kReady = 1;          // to send
inline constexpr std::int16_t kWaiting = 2;        // nothing received
inline constexpr std::int16_t kReceiving = 3;      // bytes received, no end
inline constexpr std::int16_t kResume = 4;         // behind a replay
inline constexpr std::int16_t kUnused = 5;         // nothing sets it (Q40)
inline constexpr std::int16_t kFirstOfSearch = 6;  // ready to send the first frame of a search
inline constexpr std::int16_t kNextPart = 7;       // a native reply ended with 0A: wait for its next part

}  // namespace commtest::cycle_step
