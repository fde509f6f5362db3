#include "support/virtual_line.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace commtest::testing {

namespace {

constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

template <typename Map>
std::int64_t FirstTime(const Map& queue) {
    return queue.empty() ? kNever : queue.begin()->first;
}

}  // namespace

void VirtualLine::Drive(Timer& timer) {
    timers_.push_back({&timer, kNever});
    timer.DriveBy(this);
}

void VirtualLine::At(std::int64_t time, std::function<void()> action) {
    actions_.emplace(time, std::move(action));
}

void VirtualLine::RunUntil(std::int64_t time) {
    while (RunNext(time)) {
    }
    now_ = std::max(now_, time);
}

void VirtualLine::RunWhile(const std::function<bool()>& goesOn, std::int64_t time) {
    while (goesOn() && RunNext(time)) {
    }
}

bool VirtualLine::RunNext(std::int64_t limit) {
    const auto timer = std::min_element(timers_.begin(), timers_.end(),
                                        [](const Driven& a, const Driven& b) { return a.due < b.due; });
    const std::int64_t timerDue = timer == timers_.end() ? kNever : timer->due;
    // What fell due during a sleep happens behind it, all at that one instant.
    const auto atEarliest = [this](std::int64_t due) { return due == kNever ? kNever : std::max(due, now_); };
    const std::int64_t lineTime = atEarliest(FirstTime(arrivals_));
    const std::int64_t timerTime = atEarliest(timerDue);
    const std::int64_t actionTime = atEarliest(FirstTime(actions_));
    const std::int64_t next = std::min({lineTime, timerTime, actionTime});
    if (next > limit) return false;
    now_ = next;
    if (lineTime == next) {
        Deliver();
    } else if (timerTime == next) {
        Tick(static_cast<std::size_t>(timer - timers_.begin()));
    } else {
        const auto action = std::move(actions_.begin()->second);
        actions_.erase(actions_.begin());
        action();
    }
    return true;
}

void VirtualLine::Deliver() {
    const std::string bytes = std::move(arrivals_.begin()->second);
    arrivals_.erase(arrivals_.begin());
    Arrives(bytes);
}

void VirtualLine::Arrives(const std::string& bytes) {
    if (!open_) return;
    waiting_ += bytes;
    Receives();
}

void VirtualLine::Tick(std::size_t index) {
    Driven& driven = timers_[index];
    driven.due = now_ + driven.timer->Interval();
    TimerTick(static_cast<int>(index));
}

void VirtualLine::Started(Timer& timer) {
    for (Driven& driven : timers_) {
        if (driven.timer == &timer) driven.due = now_ + timer.Interval();
    }
}

void VirtualLine::Stopped(Timer& timer) {
    for (Driven& driven : timers_) {
        if (driven.timer == &timer) driven.due = kNever;
    }
}

Text VirtualLine::Device() const {
    const auto inUse = std::find_if(Ports.begin(), Ports.end(),
                                    [&](const PortDevice& each) { return each.number == commPort_; });
    return inUse == Ports.end() ? Text() : inUse->device;
}

void VirtualLine::Output(const std::string& bytes) {
    ++frameCount_;
    if (KeepsFrames) frames_.push_back({now_, bytes, settings_, commPort_});
    if (!Answer) return;
    for (const Arrival& arrival : Answer(bytes)) arrivals_.emplace(now_ + arrival.first, arrival.second);
}

DateTime VirtualLine::Now() const {
    using namespace std::chrono;
    const auto day = sys_days(year(start_.year) / start_.month / start_.day);
    const auto moment =
        day + hours(start_.hour) + minutes(start_.minute) + seconds(start_.second) + seconds(now_ / 1000);
    const auto today = floor<days>(moment);
    const year_month_day date(today);
    const hh_mm_ss time(moment - today);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

double VirtualLine::Random() { return RandomNumbers[nextRandom_++ % RandomNumbers.size()]; }

}  // namespace commtest::testing
