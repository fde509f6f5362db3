#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "app/session.h"
#include "fuzz/require.h"
#include "session/events.h"
#include "session/grid_rows.h"
#include "session/start_stop.h"
#include "support/fakes.h"
#include "support/sqlite_store.h"
#include "support/virtual_line.h"

namespace commtest::fuzz {

template <std::size_t N>
Text OneOf(FuzzedDataProvider& input, const std::array<TextView, N>& choices) {
    return Text(input.PickValueInArray(choices));
}

// A session that polls over a virtual line. What its far end answers, in which pieces and with which delays,
// is up to the input. A target sets the session up, makes its replies, and looks behind each event at what
// the session promises.
class FuzzedSession {
  public:
    FuzzedSession(const FuzzedSession&) = delete;
    FuzzedSession& operator=(const FuzzedSession&) = delete;
    virtual ~FuzzedSession() = default;

    // Polls until the input is used up, and then some.
    virtual void Run() {
        Poll();
        Finish();
    }

  protected:
    explicit FuzzedSession(FuzzedDataProvider& input)
        : input_(input),
          session_({line_, dialogs_, line_, files_, ClosedStore(), settings_, program_}),
          form_(session_.Form()) {
        for (Timer& timer : form_.Timer1) line_.Drive(timer);
        line_.Answer = [this](const std::string& frame) { return Answer(frame); };
        line_.Receives = [this] { Receive(); };
        line_.TimerTick = [this](int index) { Tick(index); };
        form_.Record().BlockFinished = [this](const RecordBlock& block) {
            ++blocks_;
            Require(block.text.ends_with(u"\r\n\r\n"), "a block ends in an empty line");
            Require(block.outcome != nullptr, "a block tells what came of its exchange");
            const RecordParts& parts = block.parts;
            Require(parts.frameAt <= parts.frameEnd && parts.frameEnd <= parts.replyAt &&
                        parts.replyAt <= parts.wordsAt && parts.wordsAt <= block.text.size(),
                    "the parts of a block follow each other");
        };
    }

    virtual void BeforeAnswer(const std::string& frame) = 0;
    virtual std::string AnyReply() = 0;
    virtual void Receive() = 0;
    virtual void Tick(int index) = 0;

    // The columns from the one to the other, row by row.
    std::vector<Text> Columns(int first, int last) const {
        const Grid& grid = form_.ParameterGrid();
        std::vector<Text> texts;
        for (int row = 0; row < grid.Rows(); ++row) {
            for (int col = first; col <= last; ++col) texts.push_back(grid.Cell(row, col));
        }
        return texts;
    }

    // Ends the set-up of the grid: the columns of the parameter list are not to change any more.
    void BeginWithTheseRows(int furthestRow) {
        SetUpParameterGrid(form_, kChineseTexts.parameterHeadings);
        form_.CurrentRow =
            input_.ConsumeIntegralInRange<std::int16_t>(0, static_cast<std::int16_t>(furthestRow));
        rowsAtStart_ = ListAndEntries();
    }

    // One start of the session, until it stops or the input is used up.
    void Poll() {
        constexpr std::int64_t kLongestRun = 400000;  // milliseconds
        RunEvent(form_, [this] { StartOrStop(form_, {StopCause::User}); });
        const auto goesOn = [this] {
            return input_.remaining_bytes() > 0 && line_.FrameCount() < kMostFrames &&
                   form_.Timer1[1].Enabled();
        };
        line_.RunWhile(goesOn, line_.Time() + kLongestRun);
    }

    void Finish() {
        line_.Answer = nullptr;
        line_.RunUntil(line_.Time() + 3000);
        Require(rowsAtStart_ == ListAndEntries(), "a reply touches no column of the parameter list");
        Require(form_.Outcomes.Total() == static_cast<std::uint64_t>(blocks_), "each block is an outcome");
    }

    std::string TakeOffTheLine() {
        std::string bytes = onTheLine_.begin()->second;
        onTheLine_.erase(onTheLine_.begin());
        return bytes;
    }

    struct Counters {
        std::int32_t sent;
        std::int32_t incomplete;
        std::int32_t noReply;
        std::int32_t checkError;

        std::int32_t EndsOfWaits() const { return noReply + incomplete; }
    };
    Counters Count() const {
        return {form_.SendCount, form_.IncompleteCount, form_.NoReplyCount, form_.CheckErrorCount};
    }

    // Runs a tick and checks what holds behind each; true if a wait has ended.
    bool TickEndsAWait(int index) {
        const Counters before = Count();
        const bool hasBytes = HasBytes();
        TimerTicks(form_, index);
        const Counters after = Count();
        const std::int32_t failures = after.EndsOfWaits() - before.EndsOfWaits();
        Require(failures == 0 || (failures == 1 && index == 1), "a wait ends once");
        Require(after.checkError == before.checkError, "a time-out is no check error");
        if (failures == 0) return false;
        Require((after.incomplete > before.incomplete) == hasBytes, "bytes make a reply incomplete");
        Require(form_.ReplyText.empty() && form_.CycleStep == 1, "the next frame starts afresh");
        return true;
    }

    // Whether bytes have come since the frame went out.
    virtual bool HasBytes() const { return !form_.ReplyText.empty(); }

    void CheckGrid(int furthestRow) const {
        const Grid& grid = form_.ParameterGrid();
        Require(form_.CurrentRow >= 0 && form_.CurrentRow <= furthestRow, "CurrentRow stays near the grid");
        Require(grid.Cols() == column::kCount && grid.Row < grid.Rows() && grid.Col < grid.Cols(),
                "the current cell is in the grid");
    }

    // Only run-time errors of these numbers may have been shown, and the refusal of a frame.
    void CheckBoxes(std::initializer_list<int> errors) const {
        for (const testing::ShownBox& box : dialogs_.Shown) {
            const bool isKnown = std::find(errors.begin(), errors.end(), box.number) != errors.end() ||
                                 (box.number == 0 && box.text.starts_with(u"对不起"));
            Require(isKnown, "a handler ends with a known error only");
        }
    }

    static constexpr int kMostFrames = 60;
    static constexpr int kLongestPiece = 80;

    FuzzedDataProvider& input_;
    testing::VirtualLine line_;
    testing::FakeDialogs dialogs_;
    testing::FakeProgramFiles files_;
    testing::FakeSettings settings_;
    testing::FakeProgram program_;
    Session session_;
    MainForm& form_;
    int blocks_ = 0;
    std::multimap<std::int64_t, std::string> onTheLine_;  // by time of arrival

  private:
    static Store& ClosedStore() {
        static testing::SqliteStore store;
        return store;
    }

    // What the columns of the parameter list hold, and the one for entries.
    std::vector<Text> ListAndEntries() const {
        std::vector<Text> texts = Columns(column::kName, column::kDecimals);
        const std::vector<Text> entries = Columns(column::kNewValue, column::kNewValue);
        texts.insert(texts.end(), entries.begin(), entries.end());
        return texts;
    }

    std::vector<testing::Arrival> Answer(const std::string& frame) {
        BeforeAnswer(frame);
        std::vector<testing::Arrival> arrivals;
        std::string reply = AnyReply();
        std::int64_t delay = 0;
        while (!reply.empty()) {
            delay += 10 * input_.ConsumeIntegralInRange(0, 160);
            const auto length = input_.ConsumeIntegralInRange<std::size_t>(1, reply.size());
            arrivals.emplace_back(delay, reply.substr(0, length));
            onTheLine_.emplace(line_.Time() + delay, reply.substr(0, length));
            reply.erase(0, length);
        }
        return arrivals;
    }

    std::vector<Text> rowsAtStart_;
};

}  // namespace commtest::fuzz
