#pragma once

#include <vector>

#include "protocol_native/native_protocols.h"
#include "support/conversation_bench.h"

namespace commtest::testing {

// A conversation with one native instrument at address 1.
struct NativeTalkBench : ConversationBench {
    NativeTalkBench(int code, const std::vector<TestParameter>& parameters)
        : ConversationBench(RowOf(NativeProtocols(), code), parameters) {
        Talk().AddressText = u" 30 31";
    }
};

}  // namespace commtest::testing
