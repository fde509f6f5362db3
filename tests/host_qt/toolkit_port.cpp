#include <utility>

#include "host_qt/event_loop.h"
#include "host_qt/port_under_test.h"

namespace commtest::testing {

namespace {

class ToolkitPort : public PortUnderTest {
  public:
    explicit ToolkitPort(DeviceMap devices) : port_(std::move(devices)) {}

    QtSerialPort& Port() override { return port_; }
    bool Eventually(const std::function<bool()>& holds) override { return testing::Eventually(holds); }
    void RunFor(std::chrono::milliseconds time) override { RunEventLoopFor(time); }

  private:
    QtSerialPort port_;
};

}  // namespace

std::unique_ptr<PortUnderTest> MakePortUnderTest(DeviceMap devices) {
    return std::make_unique<ToolkitPort>(std::move(devices));
}

}  // namespace commtest::testing
