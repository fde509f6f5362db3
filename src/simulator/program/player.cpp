#include "simulator/program/player.h"

#include <poll.h>
#include <signal.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>

namespace simulator {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

volatile sig_atomic_t isEnding = 0;

constexpr int kEndingSignals[] = {SIGTERM, SIGINT, SIGHUP};

// Chunks in the order of their time; those of the same time in the order of their coming.
class SendQueue {
  public:
    void Add(Clock::time_point now, Chunk chunk) {
        chunks_.emplace(now + milliseconds(chunk.delayMs), std::move(chunk.bytes));
    }

    void SendDue(Clock::time_point now, LineDevice& device) {
        while (!chunks_.empty() && chunks_.begin()->first <= now) {
            device.Write(chunks_.begin()->second);
            chunks_.erase(chunks_.begin());
        }
    }

    std::optional<timespec> TimeToNext(Clock::time_point now) const {
        if (chunks_.empty()) return std::nullopt;
        const auto left =
            std::chrono::nanoseconds(std::max(chunks_.begin()->first - now, Clock::duration::zero()));
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        return timespec{seconds.count(), (left - seconds).count()};
    }

  private:
    std::multimap<Clock::time_point, std::string> chunks_;
};

}  // namespace

void HoldBackSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : kEndingSignals) {
        sigaddset(&ending, number);
        struct sigaction action {};
        action.sa_handler = [](int) { isEnding = 1; };
        sigaction(number, &action, nullptr);
    }
    sigprocmask(SIG_BLOCK, &ending, nullptr);
}

void Play(Bus& bus, LineDevice& device) {
    const Clock::time_point start = Clock::now();
    SendQueue queue;
    sigset_t none;
    sigemptyset(&none);
    while (isEnding == 0) {
        const auto timeToNext = queue.TimeToNext(Clock::now());
        pollfd line{device.Handle(), POLLIN, 0};
        ppoll(&line, 1, timeToNext ? &*timeToNext : nullptr, &none);  // a signal can come only in here
        const Clock::time_point now = Clock::now();
        if (line.revents != 0) {
            const auto timeMs = std::chrono::duration_cast<milliseconds>(now - start).count();
            for (Chunk& chunk : bus.Receive(device.Read(), timeMs)) queue.Add(now, std::move(chunk));
        }
        queue.SendDue(now, device);
    }
}

}  // namespace simulator
