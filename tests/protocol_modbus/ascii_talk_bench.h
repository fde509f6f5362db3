#pragma once

#include <string>
#include <vector>

#include "protocol_modbus/modbus_protocols.h"
#include "support/conversation_bench.h"

namespace commtest::testing {

// A conversation with one instrument that speaks in ASCII digits, at address 1.
struct AsciiTalkBench : ConversationBench {
    AsciiTalkBench(int code, const std::vector<TestParameter>& parameters)
        : ConversationBench(RowOf(AsciiProtocols(), code), parameters) {
        Talk().AddressText = u"01";
    }

    // A poll in another state of the grid.
    std::string PollFrom(std::int16_t row, std::int32_t commandCode) {
        Talk().CurrentRow = row;
        return Poll(commandCode);
    }

    static constexpr std::int16_t kFirstRow = 6;
};

}  // namespace commtest::testing
