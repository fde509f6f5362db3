#pragma once

#include <string>
#include <vector>

#include "app/instrument_bench.h"

namespace commtest::testing {

// A bench with one instrument that speaks in ASCII digits, chosen, at address 1; its parameters begin at row
// 6.
struct AsciiBench : InstrumentBench {
    AsciiBench(int code, const std::vector<TestParameter>& parameters) : InstrumentBench(code, parameters) {
        Form().AddressText = u"01";
        Form().LogLine.clear();
    }
};

}  // namespace commtest::testing
