#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/number.h"
#include "session/main_form.h"
#include "session/polling_cycle.h"
#include "session/receive_reply.h"
#include "session/records.h"
#include "support/bench_session.h"

namespace commtest::testing {

// A frame as the engineer reads it, "@01RD17\r", as HexText, and back.
inline HexText FrameOf(std::string_view characters) {
    HexText frame;
    for (const char character : characters) AppendHexByte(frame, static_cast<unsigned char>(character));
    return frame;
}
inline std::string CharactersOf(const HexText& frame) { return BytesOfHex(ToUtf8(frame)); }

// A bench with one instrument, chosen, at address 1; the session is stopped. Rows 1 to 5 are commands, its
// parameters begin at row 6.
class InstrumentBench : public BenchSession {
  public:
    InstrumentBench(int code, const std::vector<TestParameter>& parameters) {
        const Text protocol(Form().protocols.Of(code).name);
        Add(u"仪表", protocol, WholeText(code) + u"0100", BehindFiveCommands(parameters));
        Choose(protocol, u"仪表");
        Form().AddressText = u" 30 31";
    }

    Grid& Rows() { return Form().ParameterGrid(); }
    void SetCell(int row, int col, const Text& text) { Rows().SetCell(row, col, text); }

    // The frame that stands ready, in characters.
    std::string Frame() { return CharactersOf(Form().SendText); }

    // The frame of the next poll under a command code, in characters.
    std::string Poll(std::int32_t commandCode) {
        Form().CommandCode = commandCode;
        BuildReadRequest(Form());
        return Frame();
    }

    // A reply has come, in characters, while CycleStep was `step`.
    void Parse(std::int16_t step, std::string_view reply) { ParseHex(step, FrameOf(reply)); }
    void ParseHex(std::int16_t step, const HexText& reply) {
        Form().CycleStep = step;
        Form().ReplyText = reply;
        ReceiveReply(Form());
    }

    // Answers the frames in turn with replies in characters, each at once.
    void WillReply(const std::vector<std::string>& replies) {
        std::vector<std::string> hex;
        for (const std::string& reply : replies) hex.push_back(HexOfBytes(reply));
        WillAnswer(hex);
    }

    // The frames that went out, in characters.
    std::vector<std::string> SentCharacters() const {
        std::vector<std::string> frames;
        for (const SentFrame& frame : line.Frames()) frames.push_back(frame.bytes);
        return frames;
    }

    // What ConAutoSave(1) has logged.
    std::string ErrorRecords() const { return ToUtf8(files.ReadText(u"ErrorComm.ini").text); }

  private:
    static std::vector<TestParameter> BehindFiveCommands(const std::vector<TestParameter>& parameters) {
        std::vector<TestParameter> rows(5, {u"命令", u"0000", u"3", u"W", u"0"});
        rows.insert(rows.end(), parameters.begin(), parameters.end());
        return rows;
    }
};

}  // namespace commtest::testing
