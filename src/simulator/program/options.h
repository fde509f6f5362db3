#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/faults.h"
#include "simulator/refusals.h"

namespace simulator {

struct Options {
    std::vector<std::string> descriptions;
    std::string device;  // empty: a pseudo-terminal of its own
    std::string link;
    std::string counts;  // file for the counts; empty: standard output
    FaultRates rates;
    std::vector<RefusalRate> refusals;
    std::uint64_t seed = 1;
    int turnaroundMs = 0;
    int partLength = 0;
    bool help = false;
    bool version = false;
};

class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Raises UsageError with one line that says what is wrong.
Options ReadOptions(const std::vector<std::string>& arguments);

extern const char* const kUsage;

}  // namespace simulator
