#include "cli/interrupt.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace commtest {

namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

// A signal's handler may do no more than write; the event loop reads the other end.
int pipeEnds[2] = {-1, -1};

void WakeEventLoop(int) {
    const int formerError = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &byte, 1);
    errno = formerError;
}

}  // namespace

Interrupt::Interrupt(std::function<void()> handler) {
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [handler = std::move(handler)] {
        char byte = 0;
        if (read(pipeEnds[0], &byte, 1) == 1) handler();
    });
    struct sigaction action = {};
    action.sa_handler = WakeEventLoop;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], &action, &former_[i]);
        // A program that was started to outlive its terminal (nohup) goes on.
        const bool outlivesTerminal = kSignals[i] == SIGHUP && former_[i].sa_handler == SIG_IGN;
        if (outlivesTerminal) sigaction(SIGHUP, &former_[i], nullptr);
    }
}

int Interrupt::Descriptor() { return pipeEnds[0]; }

Interrupt::~Interrupt() {
    if (notifier_ == nullptr) return;
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &former_[i], nullptr);
    notifier_.reset();
    for (int& end : pipeEnds) close(std::exchange(end, -1));
}

}  // namespace commtest
