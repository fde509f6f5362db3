#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <unordered_map>

#include "controls/timer.h"

namespace commtest {

// Drives timers by the event loop, to the millisecond. An interval of 0, or below, ticks whenever the loop is
// free. The timers that it drives may be destroyed before it.
class QtTimers : public TimerDriver {
  public:
    // From here on `timer` calls `tick` at each of its ends.
    void Drive(Timer& timer, std::function<void()> tick);

    void Started(Timer& timer) override;
    void Stopped(Timer& timer) override;

  private:
    std::unordered_map<const Timer*, std::unique_ptr<QTimer>> timers_;
};

}  // namespace commtest
