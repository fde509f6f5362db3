#include <utility>

#include "cli/line_transport.h"
#include "controls/timer.h"
#include "host_qt/port_under_test.h"

namespace commtest::testing {

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

class TransportPort : public PortUnderTest {
  public:
    explicit TransportPort(DeviceMap devices) : transport_(MakeLineTransport(std::move(devices))) {
        transport_->Drive(look_, [this] {
            if (isOver_()) transport_->Quit();
        });
    }

    QtSerialPort& Port() override { return transport_->Port(); }

    bool Eventually(const std::function<bool()>& holds) override {
        const auto end = Clock::now() + std::chrono::seconds(2);
        RunUntil([&] { return holds() || Clock::now() > end; });
        return holds();
    }

    void RunFor(milliseconds time) override {
        const auto end = Clock::now() + time;
        RunUntil([&] { return Clock::now() > end; });
    }

  private:
    void RunUntil(std::function<bool()> isOver) {
        isOver_ = std::move(isOver);
        look_.SetEnabled(true);
        transport_->Run({});
        look_.SetEnabled(false);
    }

    Timer look_{false, 1};
    std::function<bool()> isOver_;
    std::unique_ptr<LineTransport> transport_;
};

}  // namespace

std::unique_ptr<PortUnderTest> MakePortUnderTest(DeviceMap devices) {
    return std::make_unique<TransportPort>(std::move(devices));
}

}  // namespace commtest::testing
