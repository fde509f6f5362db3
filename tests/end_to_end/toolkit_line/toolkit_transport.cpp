#include <QEventLoop>
#include <QTimer>
#include <utility>

#include "cli/line_transport.h"
#include "host_qt/qt_timers.h"

namespace commtest {

namespace {

using namespace std::chrono_literals;

// Port, timers and loop of the window.
class ToolkitTransport : public LineTransport {
  public:
    explicit ToolkitTransport(DeviceMap devices) : port_(std::move(devices)) {}

    QtSerialPort& Port() override { return port_; }
    void Drive(Timer& timer, std::function<void()> tick) override { timers_.Drive(timer, std::move(tick)); }

    void Run(const std::function<void()>& looks) override {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&looks] {
            if (looks) looks();
        });
        look.start(100ms);
        loop_.exec();
    }

    void Quit() override { loop_.quit(); }

  private:
    QtSerialPort port_;
    QtTimers timers_;
    QEventLoop loop_;
};

}  // namespace

std::unique_ptr<LineTransport> MakeLineTransport(DeviceMap devices) {
    return std::make_unique<ToolkitTransport>(std::move(devices));
}

}  // namespace commtest
