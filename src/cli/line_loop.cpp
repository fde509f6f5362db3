#include "cli/line_loop.h"

#include <algorithm>
#include <utility>

namespace commtest {

namespace {

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds LengthOf(const Timer& timer) {
    return std::chrono::milliseconds(std::max(timer.Interval(), 0));
}

timespec Wanted(Clock::duration time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(time - seconds);
    return {static_cast<time_t>(seconds.count()), static_cast<long>(rest.count())};
}

}  // namespace

// --- Timers ---

void LineLoop::Drive(Timer& timer, std::function<void()> tick) {
    timers_.push_back({&timer, std::move(tick)});
    timer.DriveBy(this);
}

LineLoop::DrivenTimer& LineLoop::Driven(const Timer& timer) {
    return *std::find_if(timers_.begin(), timers_.end(),
                         [&timer](const DrivenTimer& each) { return each.timer == &timer; });
}

void LineLoop::Started(Timer& timer) {
    DrivenTimer& driven = Driven(timer);
    driven.isOn = true;
    ++driven.start;
    driven.end = timer.Interval() > 0 ? Clock::now() + LengthOf(timer) : now_;
}

void LineLoop::Stopped(Timer& timer) { Driven(timer).isOn = false; }

void LineLoop::FindDue() {
    now_ = Clock::now();
    due_.clear();
    for (DrivenTimer& each : timers_) {
        if (!each.isOn || each.end > now_) continue;
        const auto isLater = [&each](const DueTimer& other) { return other.end > each.end; };
        due_.insert(std::find_if(due_.begin(), due_.end(), isLater), {&each, each.start, each.end});
    }
}

// A tick may stop the others, or start them anew.
void LineLoop::TellDue() {
    FindDue();
    for (const DueTimer& each : due_) {
        DrivenTimer& driven = *each.driven;
        if (!isRunning_) return;
        if (!driven.isOn || driven.start != each.start) continue;
        const auto length = LengthOf(*driven.timer);
        driven.end += length;
        if (driven.end < now_) driven.end = now_ + length;
        driven.tick();
    }
}

// --- Descriptors ---

void LineLoop::Watch(int descriptor, short events, std::function<void(short events)> ready) {
    watched_.push_back({descriptor, events, std::move(ready)});
}

LineLoop::WatchedDescriptor& LineLoop::Watched(int descriptor) {
    return *std::find_if(watched_.begin(), watched_.end(), [descriptor](const WatchedDescriptor& each) {
        return each.descriptor == descriptor;
    });
}

void LineLoop::SetEvents(int descriptor, short events) { Watched(descriptor).events = events; }

// Maybe from within `ready`, which has to live on.
void LineLoop::Unwatch(int descriptor) { Watched(descriptor).descriptor = -1; }

void LineLoop::TellReady() {
    for (std::size_t i = 0; i < waiting_.size(); ++i) {
        if (!isRunning_) return;
        const short events = waiting_[i].revents;
        if (events != 0 && watched_[i].descriptor >= 0) watched_[i].ready(events);
    }
}

// --- Rounds ---

void LineLoop::Wait() {
    std::erase_if(watched_, [](const WatchedDescriptor& each) { return each.descriptor < 0; });
    waiting_.clear();
    for (const WatchedDescriptor& each : watched_) waiting_.push_back({each.descriptor, each.events, 0});
    const DrivenTimer* first = nullptr;
    for (const DrivenTimer& each : timers_) {
        if (each.isOn && (first == nullptr || each.end < first->end)) first = &each;
    }
    if (first != nullptr && first->end > now_) now_ = Clock::now();
    const timespec time = Wanted(first == nullptr ? Clock::duration() : std::max(first->end, now_) - now_);
    const int ready = ppoll(waiting_.data(), waiting_.size(), first == nullptr ? nullptr : &time, nullptr);
    if (ready < 0) waiting_.clear();  // a signal
}

void LineLoop::Run() {
    isRunning_ = true;
    while (isRunning_) {
        Wait();
        TellReady();
        if (isRunning_) TellDue();
    }
}

}  // namespace commtest
