#pragma once

#include <string>
#include <vector>

#include "protocol_native/instrument_bench.h"

namespace commtest::testing {

// A bench with one instrument that speaks in ASCII digits, chosen, at address 1; its parameters begin at row
// 6.
struct AsciiBench : InstrumentBench {
    AsciiBench(int code, const std::vector<TestParameter>& parameters) : InstrumentBench(code, parameters) {
        Form().AddressText = u"01";
        Form().LogLine.clear();
    }

    // A poll in another state of the grid.
    std::string PollFrom(std::int16_t row, std::int32_t commandCode) {
        Form().CurrentRow = row;
        return Poll(commandCode);
    }
};

inline constexpr std::int16_t kFirstRow = 6;

}  // namespace commtest::testing
