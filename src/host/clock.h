#pragma once

#include <cstdint>

namespace commtest {

// A moment of the wall clock, local time.
struct DateTime {
    int year = 2000;
    int month = 1;  // 1..12
    int day = 1;    // 1..31
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;

    virtual DateTime Now() const = 0;

    // Microseconds of a clock that only goes forward, from any beginning.
    virtual std::int64_t Microseconds() const = 0;

    // The one blocking pause of the program, behind a change of the baud rate.
    virtual void Sleep(std::int32_t milliseconds) = 0;

    // A random number in [0, 1). The sequence is the same at each start of the program, so that a
    // communication test can be repeated.
    virtual double Random() = 0;
};

}  // namespace commtest
