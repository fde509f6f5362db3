#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/fuzzed_session.h"
#include "fuzz/require.h"
#include "session/cycle_step.h"

namespace commtest::fuzz {

// Bytes in hexadecimal digits, with something in front of each.
inline Text HexDigits(const std::string& bytes, TextView before = u"") {
    constexpr TextView kDigits = u"0123456789ABCDEF";
    Text digits;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        digits += before;
        digits += kDigits[byte / 16];
        digits += kDigits[byte % 16];
    }
    return digits;
}

// What a row shows in columns 6 to 9.
struct RowReadings {
    Text single;
    Text digits;
    Text value;
    Text scaled;
};

// A session of an instrument whose replies end by their length and count no check errors. A target says what
// each event makes of the readings; they are looked at behind every one.
class SpecialSession : public FuzzedSession {
  protected:
    SpecialSession(FuzzedDataProvider& input, std::int16_t code, std::size_t wholeReply)
        : FuzzedSession(input), wholeReply_(wholeReply) {
        static constexpr std::array<TextView, 4> kDelays = {u"100", u"0", u"1000", u"快"};
        form_.ProtocolCode = code;
        form_.MeterCodeText = FromUtf8(std::to_string(code)) + u"0100";
        form_.SendCount = input_.ConsumeIntegralInRange(0, 60);
        form_.ShowMode.Show(input_.ConsumeBool() ? 1 : 0);
        form_.ConDelayTime.Set(OneOf(input_, kDelays));
        form_.ConAutoSave[0].Set(input_.ConsumeBool());
        files_.HasRecordFolder = input_.ConsumeBool();
    }

    // What whole replies, waits that ran out and requests, whether they could leave or not, bring about.
    virtual void TakeReply(const Outcome& outcome, const std::string& reply) = 0;
    virtual void TakeTimeOut() = 0;
    virtual void TakeRequest(bool hasLeft) = 0;
    virtual void CheckOperation() const = 0;

    // Rows with something to read in each, which the next reply has to overwrite or to leave.
    void MakeRows() {
        constexpr int kMostRows = 20;
        Grid& grid = form_.ParameterGrid();
        grid.SetSize(input_.ConsumeIntegralInRange(1, kMostRows) + 1, column::kCount);
        for (int row = 1; row < grid.Rows(); ++row) {
            for (int col = column::kSingleRead; col <= column::kScaledValue; ++col) {
                grid.SetCell(row, col, u"旧");
            }
        }
    }

    // Ends the set-up of the grid.
    void BeginWithTheseReadings() {
        BeginWithTheseRows(kFurthestRow);
        const Grid& grid = form_.ParameterGrid();
        for (int row = 0; row < grid.Rows(); ++row) {
            readings_.push_back({grid.Cell(row, column::kSingleRead), grid.Cell(row, column::kGroupRead),
                                 grid.Cell(row, column::kValue), grid.Cell(row, column::kScaledValue)});
        }
    }

    RowReadings& Row(int row) { return readings_.at(static_cast<std::size_t>(row)); }

    std::vector<RowReadings> readings_;  // that the grid has to show

  private:
    void BeforeAnswer(const std::string&) override {
        Require(form_.ParameterGrid().Redraw, "the grid is redrawn behind a read builder");
    }

    void Receive() override {
        reply_ += TakeOffTheLine();
        const bool isComplete = reply_.size() >= wholeReply_;
        const Counters before = Count();
        const int blocksBefore = blocks_;
        PortReceives(form_);
        const Counters after = Count();
        Require(form_.ReplyText == (isComplete ? Text() : HexDigits(reply_, u" ")),
                "what has come stands in ReplyText until it makes a whole reply");
        Require(blocks_ == blocksBefore + (isComplete ? 1 : 0), "each whole reply makes one block");
        Require(after.noReply == before.noReply && after.incomplete == before.incomplete,
                "bytes that come are neither missing nor incomplete");
        Require(after.checkError == before.checkError, "no reply counts as a check error");
        if (isComplete) {
            TakeReply(LastOutcome(Ending::Complete), reply_);
            BeginAfresh();
        }
        CheckState();
    }

    void Tick(int index) override {
        const bool buildsRequest = index == 1 && form_.CycleStep == cycle_step::kReady;
        const std::size_t framesBefore = line_.FrameCount();
        const int blocksBefore = blocks_;
        const bool endsAWait = TickEndsAWait(index);
        Require(blocks_ == blocksBefore + (endsAWait ? 1 : 0), "each wait that runs out makes one block");
        if (endsAWait) {
            const Outcome& outcome = LastOutcome(reply_.empty() ? Ending::Silent : Ending::Incomplete);
            Require(outcome.verdict.check == CheckWord::NotJudged, "only a whole reply has a check word");
            TakeTimeOut();
            BeginAfresh();
        }
        if (buildsRequest) NoteRequest(line_.FrameCount() > framesBefore);
        CheckState();
    }

    void NoteRequest(bool hasLeft) {
        if (hasLeft) request_ = form_.SendText;
        TakeRequest(hasLeft);
    }

    // Bytes that come before the next request are a reply to none.
    void BeginAfresh() {
        reply_.clear();
        request_.clear();
    }

    const Outcome& LastOutcome(Ending ending) const {
        const Exchange& exchange = form_.Outcomes.Last()->exchange;
        Require(exchange.ending == ending, "an exchange tells how it has ended");
        Require(exchange.request == request_ && exchange.reply == HexDigits(reply_, u" "),
                "an exchange holds what went out and what came");
        return *form_.Outcomes.Last();
    }

    void CheckState() const {
        CheckReadings();
        CheckOperation();
        CheckGrid(kFurthestRow);
        CheckBoxes({6, 13, 76});
        if (dialogs_.Shown.empty()) Require(form_.Timer1[1].Enabled(), "only an error ends the polling");
    }

    void CheckReadings() const {
        const Grid& grid = form_.ParameterGrid();
        Require(static_cast<std::size_t>(grid.Rows()) == readings_.size(), "the grid keeps its rows");
        for (int row = 0; row < grid.Rows(); ++row) {
            const RowReadings& wanted = readings_[static_cast<std::size_t>(row)];
            Require(grid.Cell(row, column::kSingleRead) == wanted.single, "column 6 stays as it is");
            Require(grid.Cell(row, column::kGroupRead) == wanted.digits, "column 7 holds the digits");
            Require(grid.Cell(row, column::kValue) == wanted.value, "column 8 holds the value");
            Require(grid.Cell(row, column::kScaledValue) == wanted.scaled, "column 9 holds what is shown");
        }
    }

    static constexpr std::int16_t kFurthestRow = 22;

    std::size_t wholeReply_;
    HexText request_;    // that waits for its reply
    std::string reply_;  // what has come of it
};

}  // namespace commtest::fuzz
