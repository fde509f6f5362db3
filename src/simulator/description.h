#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/instrument.h"

namespace simulator {

// A description says which instruments there are. Its format is that of the shipped instrument lists, with
// more fields that may be left out; docs/simulator.md tells it.
//   11000101 | indicator | 1 | 40 | 9600 | 800 | garbage      code, name, address (default: 1, then one more
//   each), part length, baud rate, delay, how it answers
//   (0) value | 0010 | 2 | D | 0020 | | | sine -200 1800 30     name, address, length, attribute, decimals,
//   limits, life, volatile
// Empty lines and lines that begin with "#" say nothing.
class DescriptionError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// For instruments that do not say it themselves.
struct DescriptionDefaults {
    int firstAddress = 1;  // one more for each
    int partLength = 0;
};

// `source` names the text in messages: "bench.txt:7: expected ..., found ...". Instruments of protocols or
// number formats that cannot be played are refused.
std::vector<Instrument> ReadDescription(std::string_view text, const std::string& source,
                                        const DescriptionDefaults& defaults = {});

// Instruments of different framings do not understand each other's bytes.
void RefuseMixedFramings(const std::vector<Instrument>& instruments);

// Two instruments at one address that hear one rate would never both be heard.
void RefuseSharedAddresses(const std::vector<Instrument>& instruments);

}  // namespace simulator
