#pragma once

#include <string>
#include <vector>

#include "app/instrument_bench.h"
#include "session/grid_rows.h"

namespace commtest::testing {

// A bench with one RTU instrument, chosen, at address 1; its parameters begin at row 6. Frames are texts with
// a blank in front of each byte.
struct RtuBench : InstrumentBench {
    explicit RtuBench(int code, const std::vector<TestParameter>& parameters = NineWords())
        : InstrumentBench(code, parameters) {
        Form().AddressText = u"01";
        Form().CurrentRow = kFirstRow;
        Form().LogLine.clear();
    }

    // Two digits, the format of all values.
    void SetFormat(const Text& format) { Form().MeterCodeText.replace(2, 2, format); }
    void SetColumn(int col, const std::vector<Text>& texts, int firstRow = kFirstRow) {
        for (const Text& text : texts) SetCell(firstRow++, col, text);
    }

    // The frame of the next poll.
    std::string Request(std::int32_t commandCode) {
        Form().CommandCode = commandCode;
        BuildReadRequest(Form());
        return ToUtf8(Form().SendText);
    }

    static constexpr std::int16_t kFirstRow = 6;
};

}  // namespace commtest::testing
