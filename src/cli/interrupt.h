#pragma once

#include <csignal>

#include <QSocketNotifier>
#include <array>
#include <functional>
#include <memory>

namespace commtest {

// While it lives, the first request to end the program (Ctrl-C, or the signals TERM and HUP) becomes an
// event; a second one ends the program at once. One at a time.
class Interrupt {
  public:
    explicit Interrupt(std::function<void()> handler);
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    // Ready to be read once the event is due; below 0 while there is no interrupt to come.
    static int Descriptor();

  private:
    std::array<struct sigaction, 3> former_ = {};
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace commtest
