#pragma once

#include <string>
#include <vector>

#include "protocol_special/special_protocols.h"
#include "support/conversation_bench.h"

namespace commtest::testing {

// Rows 6 to 9 hold the status values, the parameters 0012 to 0016 stand in rows 10 to 14, the last of the
// grid. Row 12 is of attribute "S".
inline std::vector<TestParameter> NovaxRows() {
    return {{u"状态一", u"0001", u"2", u"R", u"1"}, {u"状态二", u"0002", u"2", u"R", u"0"},
            {u"状态三", u"0003", u"1", u"R", u"2"}, {u"状态四", u"0004", u"1", u"R", u"0"},
            {u"参数", u"0012", u"2", u"RW", u"0"},  {u"参数", u"0013", u"2", u"RW", u"1"},
            {u"参数", u"0014", u"2", u"S", u"2"},   {u"参数", u"0015", u"2", u"RW", u"0"},
            {u"参数", u"0016", u"2", u"RW", u"2"}};
}

// A conversation with a NOVAX instrument at address 1. Frames are texts with a blank in front of each byte.
struct NovaxTalkBench : ConversationBench {
    explicit NovaxTalkBench(const std::vector<TestParameter>& parameters = NovaxRows())
        : ConversationBench(RowOf(SpecialProtocols(), 41), parameters) {
        SetAddress(u"1", u" 81 81");
        Talk().CurrentRow = 10;
    }

    void SetAddress(const Text& plain, const Text& inFrame) {
        Talk().ConMeterAddr.Set(plain);
        Talk().AddressText = inFrame;
    }
    // Two digits, the format in which entries are written.
    void SetFormat(const Text& format) { Talk().MeterCodeText.replace(2, 2, format); }

    std::string Request(std::int32_t commandCode) {
        BuildRead(commandCode);
        return ToUtf8(Talk().SendText);
    }
    std::string Write(int row, const Text& entry) {
        BuildWrite(row, entry);
        return ToUtf8(Talk().SendText);
    }

    // Columns 7 to 9 of a row.
    std::string Reading(int row) { return Cell(row, 7) + "|" + Cell(row, 8) + "|" + Cell(row, 9); }
};

}  // namespace commtest::testing
