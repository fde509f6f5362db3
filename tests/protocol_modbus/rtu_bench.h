#pragma once

#include <string>
#include <vector>

#include "protocol_native/instrument_bench.h"
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

    // Two bytes each, at 0010 to 0018; the last one stands in the grid's last row, 14.
    static std::vector<TestParameter> NineWords() {
        std::vector<TestParameter> words;
        for (const TextView address :
             {u"0010", u"0011", u"0012", u"0013", u"0014", u"0015", u"0016", u"0017", u"0018"}) {
            words.push_back({u"参数", Text(address), u"2", u"RW", u"0"});
        }
        return words;
    }

    void SetName(const Text& name) { Form().ConMeterName[0].Set(name); }
    // Two digits, the format of all values.
    void SetFormat(const Text& format) { Form().MeterCodeText.replace(2, 2, format); }
    void SetColumn(int col, const std::vector<Text>& texts, int firstRow = kFirstRow) {
        for (const Text& text : texts) SetCell(firstRow++, col, text);
    }

    // The frame of the next poll, and the same without its check bytes.
    std::string Request(std::int32_t commandCode) {
        Form().CommandCode = commandCode;
        BuildReadRequest(Form());
        return ToUtf8(Form().SendText);
    }
    std::string Content(std::int32_t commandCode) {
        const std::string frame = Request(commandCode);
        return frame.substr(0, frame.size() - 6);
    }

    static constexpr std::int16_t kFirstRow = 6;
    static constexpr std::int16_t kLastRow = 14;
};

}  // namespace commtest::testing
