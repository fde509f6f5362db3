#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "controls/timer.h"
#include "host/clock.h"
#include "host/serial_port.h"

namespace commtest::testing {

// What a far end sends: a delay in milliseconds from the moment of the frame, and the bytes of one receive
// event.
using Arrival = std::pair<std::int64_t, std::string>;

// A frame as it left the port.
struct SentFrame {
    std::int64_t time;
    std::string bytes;
    Text settings;
    std::int16_t port;
};

// Virtual time with a serial line on it: drives the timers, delivers what the far end sends, takes the time
// off the wall clock. A handler takes no time, a sleep excepted. At one instant the line comes first, then
// the timers by index, then the scheduled actions. Bytes that arrive at a closed port are lost.
class VirtualLine : public TimerDriver, public SerialPort, public Clock {
  public:
    // --- The far end and the events, set by the test ---
    std::function<std::vector<Arrival>(const std::string& frame)> Answer;
    std::function<void()> Receives;      // the receive event
    std::function<void(int)> TimerTick;  // by index
    bool Occupied = false;               // opening the port fails
    Text Problem;                        // why it does
    std::vector<PortDevice> Ports;       // of the machine
    bool KeepsFrames = true;             // off for runs of many thousand exchanges
    std::vector<double> RandomNumbers = {0.5};

    void Drive(Timer& timer);  // in the order of their indices
    void SetWallClock(DateTime start) { start_ = start; }
    void At(std::int64_t time, std::function<void()> action);

    // One receive event at this moment, unasked.
    void Arrives(const std::string& bytes);

    // Runs to `time`, what falls on it included.
    void RunUntil(std::int64_t time);
    // Runs while `goesOn` says so, and at most to `time`.
    void RunWhile(const std::function<bool()>& goesOn, std::int64_t time);

    std::int64_t Time() const { return now_; }
    const std::vector<SentFrame>& Frames() const { return frames_; }
    std::size_t FrameCount() const { return frameCount_; }

    // --- TimerDriver, SerialPort, Clock ---
    void Started(Timer& timer) override;
    void Stopped(Timer& timer) override;
    std::int16_t CommPort() const override { return commPort_; }
    void SetCommPort(std::int16_t number) override { commPort_ = number; }
    Text Settings() const override { return settings_; }
    void SetSettings(Text settings) override { settings_ = std::move(settings); }
    bool PortOpen() const override { return open_; }
    void SetPortOpen(bool open) override { open_ = open && !Occupied; }
    void Output(const std::string& bytes) override;
    std::string Input() override { return std::exchange(waiting_, {}); }
    Text LastProblem() const override { return Occupied ? Problem : Text(); }
    std::vector<PortDevice> Devices() const override { return Ports; }
    Text Device() const override;
    void NameDevice(int number, Text device) override { Ports.push_back({number, std::move(device)}); }
    DateTime Now() const override;
    void Sleep(std::int32_t milliseconds) override { now_ += milliseconds; }
    std::int64_t Microseconds() const override { return now_ * 1000; }
    double Random() override;

  private:
    bool RunNext(std::int64_t limit);
    void Deliver();
    void Tick(std::size_t index);

    struct Driven {
        Timer* timer;
        std::int64_t due;
    };

    std::int64_t now_ = 0;
    DateTime start_{2024, 5, 6, 12, 0, 0};
    std::vector<Driven> timers_;
    std::multimap<std::int64_t, std::string> arrivals_;
    std::multimap<std::int64_t, std::function<void()>> actions_;
    std::vector<SentFrame> frames_;
    std::size_t frameCount_ = 0;
    std::size_t nextRandom_ = 0;
    std::string waiting_;
    std::int16_t commPort_ = 1;
    Text settings_ = u"9600,N,8,1";
    bool open_ = false;
};

}  // namespace commtest::testing
