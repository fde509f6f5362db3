#pragma once

#include "simulator/bus.h"
#include "simulator/program/line_device.h"

namespace simulator {

// Signals to end are held back from here on; they end Play and nothing else. Call it before anything is shown
// to the outside.
void HoldBackSignals();

// Answers on the device until SIGTERM, SIGINT or SIGHUP. Raises DeviceError if the device goes away.
void Play(Bus& bus, LineDevice& device);

}  // namespace simulator
