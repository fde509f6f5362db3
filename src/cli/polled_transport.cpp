#include <QCoreApplication>
#include <utility>

#include "cli/interrupt.h"
#include "cli/line_loop.h"
#include "cli/line_transport.h"
#include "cli/polled_port.h"

namespace commtest {

namespace {

constexpr int kTimeBetweenLooks = 100;  // milliseconds

// A loop of the program's own for the port and the timers. The toolkit gets a turn in it about ten times a
// second, and when the user wants an end.
class PolledTransport : public LineTransport {
  public:
    explicit PolledTransport(DeviceMap devices) : port_(loop_, std::move(devices)) {
        loop_.Drive(look_, [this] { Look(); });
    }

    QtSerialPort& Port() override { return port_; }
    void Drive(Timer& timer, std::function<void()> tick) override { loop_.Drive(timer, std::move(tick)); }

    void Run(const std::function<void()>& looks) override {
        looks_ = &looks;
        const int interrupt = Interrupt::Descriptor();
        if (interrupt >= 0) loop_.Watch(interrupt, POLLIN, [this](short) { look_.SetInterval(0); });
        look_.SetEnabled(true);
        loop_.Run();
        look_.SetEnabled(false);
        if (interrupt >= 0) loop_.Unwatch(interrupt);
    }

    void Quit() override { loop_.Quit(); }

  private:
    void Look() {
        look_.SetInterval(kTimeBetweenLooks);
        QCoreApplication::processEvents();
        if (*looks_) (*looks_)();
    }

    LineLoop loop_;
    PolledPort port_;
    Timer look_{false, kTimeBetweenLooks};
    const std::function<void()>* looks_ = nullptr;  // while Run runs
};

}  // namespace

std::unique_ptr<LineTransport> MakeLineTransport(DeviceMap devices) {
    return std::make_unique<PolledTransport>(std::move(devices));
}

}  // namespace commtest
