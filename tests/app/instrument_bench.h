#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/number.h"
#include "session/polling_cycle.h"
#include "session/receive_reply.h"
#include "support/bench_session.h"

namespace commtest::testing {

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
    void Receive(std::int16_t step, std::string_view reply) { ReceiveHex(step, FrameOf(reply)); }
    void ReceiveHex(std::int16_t step, const HexText& reply) {
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

    void LogErrors() {
        Form().ConAutoSave[1].Set(true);
        files.OpenErrorFile();
    }
    // What has been logged as an error, and its first line behind the time stamp.
    std::string ErrorRecords() const { return ToUtf8(files.ReadWhole(u"ErrorComm.ini")); }
    std::string ErrorLine() const { return ErrorRecords().empty() ? "" : ErrorRecords().substr(19); }
};

// A line of the record as the error file has it.
inline std::string LoggedAs(const std::string& line) { return line + "        串口设置: 9600,N,8,1\r\n\r\n"; }

}  // namespace commtest::testing
