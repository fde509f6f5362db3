#pragma once

#include <random>

#include "host/clock.h"

namespace commtest {

// The machine's clock, in local time. Its random numbers are those of the Mersenne Twister with the seed that
// the standard library gives it.
class SystemClock : public Clock {
  public:
    DateTime Now() const override;
    std::int64_t Microseconds() const override;
    void Sleep(std::int32_t milliseconds) override;
    double Random() override;

  private:
    std::mt19937 random_;  // Q7: the same at every start
};

}  // namespace commtest
