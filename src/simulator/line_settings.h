#pragma once

#include <optional>

#include "simulator/instrument_parts.h"

// Rows that hold where an instrument stands on its line, known by their names: 仪表地址 and 波特率.
namespace simulator {

bool HoldsAddress(const Parameter& parameter);
bool HoldsRate(const Parameter& parameter);

// Codes 0 to 7 are 1200, 2400, 4800, 9600, 19200, 28800, 38400 and 57600 baud; nothing for others.
std::optional<int> RateOfCode(double code);
std::optional<int> CodeOfRate(int rate);

}  // namespace simulator
