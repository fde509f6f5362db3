// instrument-simulator: instruments of the native protocol, of the Modbus family or of one of the two special
// protocols on a pseudo-terminal or a device.

#include <poll.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>

#include "simulator/bus.h"
#include "simulator/description.h"
#include "simulator/program/line_device.h"
#include "simulator/program/options.h"
#include "version/version_lines.h"

namespace {

using namespace simulator;

volatile sig_atomic_t ended = 0;
volatile sig_atomic_t powerIsTaken = 0;
volatile sig_atomic_t powerIsGiven = 0;

void NoteSignal(int signal) {
    if (signal == SIGUSR1) {
        powerIsTaken = 1;
        powerIsGiven = 0;
    } else if (signal == SIGUSR2) {
        powerIsGiven = 1;
    } else {
        ended = 1;
    }
}

// Signals come in only while the program waits; gives the mask under which it waits.
sigset_t CatchSignals() {
    struct sigaction action {};
    action.sa_handler = NoteSignal;
    sigset_t all;
    sigset_t waiting;
    sigemptyset(&all);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGUSR1, SIGUSR2}) {
        sigaction(signal, &action, nullptr);
        sigaddset(&all, signal);
    }
    sigprocmask(SIG_BLOCK, &all, &waiting);
    signal(SIGPIPE, SIG_IGN);  // nobody may read the output any more; the counts then say so
    return waiting;
}

std::vector<Instrument> ReadInstruments(const std::vector<std::string>& files, int partLength) {
    std::vector<Instrument> all;
    for (const std::string& file : files) {
        std::ifstream in(file);
        if (!in || in.peek() == std::ifstream::traits_type::eof())
            throw DescriptionError(file + ": cannot be read");
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        const DescriptionDefaults defaults{static_cast<int>(all.size()) + 1, partLength};
        for (Instrument& instrument : ReadDescription(text, file, defaults))
            all.push_back(std::move(instrument));
    }
    RefuseMixedFramings(all);
    RefuseSharedAddresses(all);
    return all;
}

class Player {
  public:
    Player(Bus& bus, const LineDevice& device) : bus_(bus), device_(device) {}

    void PlayUntilEnded(const sigset_t& waitingMask) {
        while (ended == 0) {
            pollfd line{device_.Handle(), POLLIN, 0};
            timespec pause{};
            const bool hasPause = SetPause(pause);
            const int ready = ppoll(&line, 1, hasPause ? &pause : nullptr, &waitingMask);
            FollowPower();
            if (ready > 0) Take();
            SendWhatIsDue();
        }
    }

  private:
    double Now() const {
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
    }

    // How long until the next chunk is due; false if none waits.
    bool SetPause(timespec& pause) const {
        if (waiting_.empty()) return false;
        const double milliseconds = std::max(waiting_.begin()->first - Now(), 0.0);
        pause.tv_sec = static_cast<time_t>(milliseconds / 1000);
        pause.tv_nsec = static_cast<long>(std::fmod(milliseconds, 1000) * 1e6);
        return true;
    }

    // Off and on that come together are both followed, in this order.
    void FollowPower() {
        if (powerIsTaken != 0) {
            bus_.TakePower();
            waiting_.clear();
        }
        if (powerIsGiven != 0) bus_.GivePower();
        powerIsTaken = 0;
        powerIsGiven = 0;
    }

    void Take() {
        const double now = Now();
        for (Chunk& chunk : bus_.Receive(device_.Read(), now, device_.Rate())) {
            waiting_.emplace(now + chunk.delayMs, std::move(chunk.bytes));
        }
    }

    void SendWhatIsDue() {
        while (!waiting_.empty() && waiting_.begin()->first <= Now()) {
            device_.Write(waiting_.begin()->second);
            waiting_.erase(waiting_.begin());
        }
    }

    Bus& bus_;
    const LineDevice& device_;
    std::multimap<double, std::string> waiting_;  // by due time
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

void WriteCounts(const Bus& bus, const std::string& file) {
    if (file.empty()) {
        if (!(std::cout << bus.CountsAsJson() << std::endl))
            throw std::runtime_error("the counts cannot be written");
        return;
    }
    std::ofstream out(file);
    out << bus.CountsAsJson() << '\n';
    if (!out.flush()) throw std::runtime_error(file + ": cannot be written");
}

int Run(const Options& options) {
    std::vector<Instrument> instruments = ReadInstruments(options.descriptions, options.partLength);
    RefuseStrangeRefusals(options.refusals, instruments.front());
    Bus bus(std::move(instruments), options.rates, options.seed, options.turnaroundMs);
    bus.SetRefusals({options.refusals, options.seed});
    const sigset_t waitingMask = CatchSignals();
    const LineDevice device(options.device, options.link);
    std::cout << device.Path() << std::endl;
    try {
        Player(bus, device).PlayUntilEnded(waitingMask);
    } catch (const std::system_error&) {
        WriteCounts(bus, options.counts);  // what was played counts, although the device is gone
        throw;
    }
    WriteCounts(bus, options.counts);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Options options = ReadOptions({argv + 1, argv + argc});
        if (options.help) {
            std::cout << kUsage;
            return 0;
        }
        if (options.version) {
            std::cout << commtest::VersionLines("instrument-simulator", {});
            return 0;
        }
        return Run(options);
    } catch (const UsageError& error) {
        std::cerr << "instrument-simulator: " << error.what() << "; --help tells the options\n";
        return 2;
    } catch (const DescriptionError& error) {
        std::cerr << "instrument-simulator: " << error.what() << '\n';
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "instrument-simulator: " << error.what() << '\n';
        return 3;
    }
}
