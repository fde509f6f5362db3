#pragma once

#include <QRandomGenerator>

#include "host/clock.h"

namespace commtest {

// The machine's clock, in local time.
class SystemClock : public Clock {
  public:
    DateTime Now() const override;
    std::int64_t Microseconds() const override;
    void Sleep(std::int32_t milliseconds) override;
    double Random() override;

  private:
    QRandomGenerator random_{1};  // Q7: the same at every start
};

}  // namespace commtest
