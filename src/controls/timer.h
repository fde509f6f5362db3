#pragma once

#include <cstdint>

namespace commtest {

class Timer;

// What drives the timers: Qt timers in the program, a virtual pump in tests.
class TimerDriver {
  public:
    virtual ~TimerDriver() = default;
    virtual void Started(Timer& timer) = 0;  // its count starts anew, from now
    virtual void Stopped(Timer& timer) = 0;
};

// A periodic timer as a value. Setting the interval of an enabled timer starts its count anew; enabling an
// enabled timer changes nothing; an interval of 0 means as soon as the event pump is free.
class Timer {
  public:
    Timer(bool enabled, std::int32_t intervalMs) : enabled_(enabled), intervalMs_(intervalMs) {}

    bool Enabled() const { return enabled_; }
    std::int32_t Interval() const { return intervalMs_; }

    void SetEnabled(bool enabled) {
        if (enabled == enabled_) return;
        enabled_ = enabled;
        Tell();
    }

    void SetInterval(std::int32_t intervalMs) {
        intervalMs_ = intervalMs;
        if (enabled_) Tell();
    }

    // From here on `driver` drives the timer; it has to outlive it or be detached with nullptr.
    void DriveBy(TimerDriver* driver) {
        driver_ = driver;
        if (enabled_) Tell();
    }

  private:
    void Tell() {
        if (driver_ == nullptr) return;
        if (enabled_) {
            driver_->Started(*this);
        } else {
            driver_->Stopped(*this);
        }
    }

    bool enabled_;
    std::int32_t intervalMs_;
    TimerDriver* driver_ = nullptr;
};

}  // namespace commtest
