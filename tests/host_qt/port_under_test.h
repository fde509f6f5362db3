#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "host_qt/qt_serial_port.h"

namespace commtest::testing {

// A port with the loop that carries its bytes. Each program of tests has its own, which the same tests try.
class PortUnderTest {
  public:
    virtual ~PortUnderTest() = default;

    virtual QtSerialPort& Port() = 0;
    // Runs the loop until `holds` does, for two seconds at most.
    virtual bool Eventually(const std::function<bool()>& holds) = 0;
    virtual void RunFor(std::chrono::milliseconds time) = 0;
};

std::unique_ptr<PortUnderTest> MakePortUnderTest(DeviceMap devices);

}  // namespace commtest::testing
