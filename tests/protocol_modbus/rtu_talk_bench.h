#pragma once

#include <string>
#include <vector>

#include "protocol_modbus/modbus_protocols.h"
#include "support/conversation_bench.h"

namespace commtest::testing {

// A conversation with one RTU instrument at address 1. Frames are texts with a blank in front of each byte.
struct RtuTalkBench : ConversationBench {
    explicit RtuTalkBench(int code, const std::vector<TestParameter>& parameters = NineWords())
        : ConversationBench(RowOf(RtuProtocols(), code), parameters) {
        Talk().AddressText = u"01";
        Talk().CurrentRow = kFirstRow;
    }

    void SetName(const Text& name) { Talk().ConMeterName[0].Set(name); }
    // Two digits, the format of all values.
    void SetFormat(const Text& format) { Talk().MeterCodeText.replace(2, 2, format); }
    void SetColumn(int col, const std::vector<Text>& texts, int firstRow = kFirstRow) {
        for (const Text& text : texts) SetCell(firstRow++, col, text);
    }

    // The frame of the next poll, and the same without its check bytes.
    std::string Request(std::int32_t commandCode) {
        BuildRead(commandCode);
        return ToUtf8(Talk().SendText);
    }
    std::string Content(std::int32_t commandCode) {
        const std::string frame = Request(commandCode);
        return frame.substr(0, frame.size() - 6);
    }

    static constexpr std::int16_t kFirstRow = 6;
};

}  // namespace commtest::testing
