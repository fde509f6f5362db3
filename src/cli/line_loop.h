#pragma once

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "controls/timer.h"

namespace commtest {

// An event loop that asks the kernel once in a round: it waits for its descriptors and for the first of its
// timers, tells what is ready, then what is due. Nothing else wakes it.
class LineLoop : public TimerDriver {
  public:
    // From here on `timer` calls `tick` at each of its ends. One of interval 0, or below, ends in each round.
    // In a round, what was due first ticks first, and no timer twice; one that another's tick has started
    // waits for the next round. The timers may be destroyed before the loop, stopped.
    void Drive(Timer& timer, std::function<void()> tick);

    void Started(Timer& timer) override;
    void Stopped(Timer& timer) override;

    // From here on `ready` hears what poll(2) says of the descriptor: of `events`, and of a hangup or an
    // error, which it says unasked.
    void Watch(int descriptor, short events, std::function<void(short events)> ready);
    void SetEvents(int descriptor, short events);
    void Unwatch(int descriptor);

    // Rounds until Quit, which ends the one under way; what is left of it comes with the next run.
    void Run();
    void Quit() { isRunning_ = false; }

  private:
    using Moment = std::chrono::steady_clock::time_point;

    struct DrivenTimer {
        const Timer* timer;
        std::function<void()> tick;
        bool isOn = false;
        std::uint64_t start = 0;  // which of its starts it is
        Moment end = {};
    };
    struct DueTimer {
        DrivenTimer* driven;
        std::uint64_t start;
        Moment end;
    };
    struct WatchedDescriptor {
        int descriptor;  // below 0: not watched any more
        short events;
        std::function<void(short events)> ready;
    };

    DrivenTimer& Driven(const Timer& timer);
    WatchedDescriptor& Watched(int descriptor);
    void Wait();
    void TellReady();
    void FindDue();
    void TellDue();

    std::deque<DrivenTimer> timers_;
    std::vector<DueTimer> due_;
    std::deque<WatchedDescriptor> watched_;
    std::vector<pollfd> waiting_;
    Moment now_ = {};  // of the last look at the clock
    bool isRunning_ = false;
};

}  // namespace commtest
