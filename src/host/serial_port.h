#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "runtime/text.h"

namespace commtest {

// A port that the machine has: its number, 1 for "COM1", and the device behind it.
struct PortDevice {
    int number = 1;
    Text device;
    Text description = {};  // what the machine says of it, "USB Serial"; may be empty
    bool isThere = true;    // a device that was named for the port need not be
    bool isInUse = false;   // locked by another program
};

// The port of the instruments' line. What arrives is announced by the event PortReceives (session/events.h).
class SerialPort {
  public:
    virtual ~SerialPort() = default;

    // Number of the port, 1 for "COM1". Written only while the port is closed.
    virtual std::int16_t CommPort() const = 0;
    virtual void SetCommPort(std::int16_t number) = 0;

    // Baud rate, parity letter, data bits, stop bits: "9600,N,8,1".
    virtual Text Settings() const = 0;
    virtual void SetSettings(Text settings) = 0;

    // Opening a port that cannot be had leaves it closed and raises nothing.
    virtual bool PortOpen() const = 0;
    virtual void SetPortOpen(bool open) = 0;

    // Why the last opening failed, or what the open line does in another way than the settings say and who
    // else reads it, and what to do, in one line; empty if there is nothing to tell.
    virtual Text LastProblem() const = 0;

    // The ports that there are at this moment, by number.
    virtual std::vector<PortDevice> Devices() const = 0;

    // The device behind the port in use; empty if there is none.
    virtual Text Device() const = 0;

    // From the next opening on, the port of that number is this device.
    virtual void NameDevice(int number, Text device) = 0;

    virtual void Output(const std::string& bytes) = 0;

    // The bytes that wait, in the order of their arrival; they are taken out of the buffer.
    virtual std::string Input() = 0;
};

}  // namespace commtest
