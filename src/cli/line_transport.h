#pragma once

#include <functional>
#include <memory>

#include "controls/timer.h"
#include "host_qt/qt_serial_port.h"

namespace commtest {

// The port of a session and the loop of its events.
class LineTransport {
  public:
    virtual ~LineTransport() = default;

    virtual QtSerialPort& Port() = 0;
    // From here on `timer` calls `tick` at each of its ends.
    virtual void Drive(Timer& timer, std::function<void()> tick) = 0;

    // The events until Quit, with those that the toolkit has; meanwhile `looks`, about ten times a second.
    virtual void Run(const std::function<void()>& looks) = 0;
    virtual void Quit() = 0;
};

// The transport of this program.
std::unique_ptr<LineTransport> MakeLineTransport(DeviceMap devices);

}  // namespace commtest
