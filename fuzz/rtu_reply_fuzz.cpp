// Replies of any kind to a session that polls an RTU instrument, through the receive event.
//
// The input begins with the set-up of the session and the rows of its grid; the rest is what the far end
// answers, in pieces and with delays that it chooses itself. Each event is followed by a look at what the
// parser promises. A session that an exception has stopped is started again.

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "app/session.h"
#include "fuzz/require.h"
#include "runtime/number.h"
#include "session/events.h"
#include "session/grid_rows.h"
#include "session/toolbar_commands.h"
#include "support/fakes.h"
#include "support/sqlite_store.h"
#include "support/virtual_line.h"

namespace commtest::fuzz {

namespace {

using testing::Arrival;

constexpr int kMostFrames = 60;
constexpr int kMostStarts = 5;
constexpr int kMostRows = 20;
constexpr std::int16_t kFurthestRow = 22;     // that a session begins at
constexpr std::int64_t kLongestRun = 400000;  // milliseconds
constexpr int kLongestPiece = 80;

constexpr std::array<TextView, 4> kInstruments = {u"仪表", u"三相表", u"流量计", u"三相流量计"};
constexpr std::array<TextView, 11> kFormats = {u"01", u"00", u"02", u"03", u"05", u"07",
                                               u"08", u"10", u"11", u"12", u"式"};
constexpr std::array<TextView, 8> kAddresses = {u"0000", u"0010", u"0011", u"0012",
                                                u"4010", u"",     u"FFFF", u"温度"};
constexpr std::array<TextView, 9> kLengths = {u"2", u"1", u"4", u"5", u"0", u"3", u"", u"45", u"字节"};
constexpr std::array<TextView, 4> kAttributes = {u"RW", u"R", u"S", u""};
constexpr std::array<TextView, 6> kDecimals = {u"0", u"0010", u"0011", u"00", u"", u"x"};
constexpr std::array<TextView, 8> kValues = {u"", u"1", u"2", u"4", u"-0.5", u"1.5", u"5", u"x"};
constexpr std::array<TextView, 4> kDelays = {u"100", u"0", u"1000", u"快"};
constexpr std::array<TextView, 5> kLimits = {u"16", u"4", u"300", u"0", u"多"};
constexpr std::array<std::int32_t, 12> kCommandCodes = {50, 40, 60, 10, 31, 80, 90, 91, 150, 160, 191, 70};
constexpr std::array<std::uint8_t, 16> kFunctions = {0x03, 0x04, 0x06, 0x10, 0x08, 0x09, 0x81, 0x82,
                                                     0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x8F, 0x00};

template <std::size_t N>
Text OneOf(FuzzedDataProvider& input, const std::array<TextView, N>& choices) {
    return Text(input.PickValueInArray(choices));
}

// The check bytes, bit by bit.
std::string CheckBytes(const std::string& content) {
    std::uint32_t crc = 0xFFFF;
    for (const char character : content) {
        crc ^= static_cast<unsigned char>(character);
        for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) != 0 ? (crc >> 1) ^ 0xA001 : crc >> 1;
    }
    return {static_cast<char>(crc & 0xFF), static_cast<char>(crc >> 8)};
}

int FunctionOf(const std::string& reply) {
    return reply.size() < 2 ? -1 : static_cast<unsigned char>(reply[1]);
}

// A board's exception of five bytes is not checked.
bool IsGood(const std::string& reply) {
    if (reply.size() == 5 && FunctionOf(reply) == 0x88) return true;
    if (reply.size() < 3) return false;
    return CheckBytes(reply.substr(0, reply.size() - 2)) == reply.substr(reply.size() - 2);
}

bool MayBeDecoded(const std::string& reply) {
    switch (FunctionOf(reply)) {
        case 0x03:
        case 0x06:
        case 0x10: return true;
        case 0x08:
        case 0x09:
        case 0x88: return false;
        default: return IsGood(reply);
    }
}

std::string BytesOf(const HexText& text) {
    std::string bytes;
    for (int at = 2; at < Len(text); at += 3) bytes += static_cast<char>(HexParse(Mid(text, at, 2)));
    return bytes;
}

Store& ClosedStore() {
    static testing::SqliteStore store;
    return store;
}

class PollingSession {
  public:
    explicit PollingSession(FuzzedDataProvider& input)
        : input_(input),
          session_({line_, dialogs_, line_, files_, ClosedStore(), settings_, program_}),
          form_(session_.Form()) {
        SetUpForm();
        SetUpRows();
        Wire();
    }

    void Run() {
        const auto goesOn = [this] {
            return input_.remaining_bytes() > 0 && line_.FrameCount() < kMostFrames &&
                   form_.Timer1[1].Enabled();
        };
        for (int start = 0; start < kMostStarts && !form_.IsRunning(); ++start) {
            RunEvent(form_, [this] { RunToolbarCommand(form_, toolbar::kStartStop); });
            line_.RunWhile(goesOn, line_.Time() + kLongestRun);
        }
        line_.Answer = nullptr;
        line_.RunUntil(line_.Time() + 3000);
        Require(rowsAtStart_ == Columns(column::kName, column::kDecimals),
                "a reply touches no column of the parameter list");
    }

  private:
    void SetUpForm() {
        const auto code = input_.PickValueInArray<std::int16_t>({31, 32, 33, 34, 35, 51});
        form_.ProtocolCode = code;
        form_.MeterCodeText = WholeText(code) + OneOf(input_, kFormats) + u"00";
        form_.ConMeterName[0].Set(OneOf(input_, kInstruments));
        form_.AddressText = u"01";
        form_.CommandCode = input_.PickValueInArray(kCommandCodes);
        form_.SendText = u" 01 06 00 10 03 E8 88 B1";
        form_.ShowMode.Show(input_.ConsumeBool() ? 1 : 0);
        form_.ConDelayTime.Set(OneOf(input_, kDelays));
        form_.ConDataNub.Set(OneOf(input_, kLimits));
        form_.Check2.Set(input_.ConsumeBool());
        form_.ConAutoSave[1].Set(input_.ConsumeBool());
        files_.HasRecordFolder = input_.ConsumeBool();
    }

    void SetUpRows() {
        Grid& grid = form_.ParameterGrid();
        const int rows = input_.ConsumeIntegralInRange(1, kMostRows);
        grid.SetSize(rows + 1, column::kCount);
        for (int row = 1; row <= rows; ++row) {
            grid.SetCell(row, column::kName, u"参数");
            grid.SetCell(row, column::kAddress, OneOf(input_, kAddresses));
            grid.SetCell(row, column::kLength, OneOf(input_, kLengths));
            grid.SetCell(row, column::kAttribute, OneOf(input_, kAttributes));
            grid.SetCell(row, column::kDecimals, OneOf(input_, kDecimals));
            grid.SetCell(row, column::kValue, OneOf(input_, kValues));
        }
        SetUpParameterGrid(form_);
        form_.CurrentRow = input_.ConsumeIntegralInRange<std::int16_t>(0, kFurthestRow);
        rowsAtStart_ = Columns(column::kName, column::kDecimals);
    }

    void Wire() {
        for (Timer& timer : form_.Timer1) line_.Drive(timer);
        line_.Answer = [this](const std::string&) { return Answer(); };
        line_.Receives = [this] { Receive(); };
        line_.TimerTick = [this](int index) { Tick(index); };
        form_.ConCommString[1].BlockFinished = [this](const Text& block) {
            ++blocks_;
            Require(block.ends_with(u"\r\n\r\n"), "a block ends in an empty line");
        };
    }

    std::vector<Text> Columns(int first, int last) const {
        const Grid& grid = form_.ParameterGrid();
        std::vector<Text> texts;
        for (int row = 0; row < grid.Rows(); ++row) {
            for (int col = first; col <= last; ++col) texts.push_back(grid.Cell(row, col));
        }
        return texts;
    }
    std::vector<Text> Readings() const { return Columns(column::kSingleRead, column::kScaledValue); }

    // --- The far end ---

    std::string AnyReply() {
        const std::string data = input_.ConsumeRandomLengthString(kLongestPiece);
        if (!input_.ConsumeBool()) return data;
        std::string reply = {1, static_cast<char>(input_.PickValueInArray(kFunctions))};
        if (input_.ConsumeBool()) reply += static_cast<char>(data.size());
        reply += data;
        std::string check = CheckBytes(reply);
        if (input_.ConsumeBool()) check[0] ^= 1;
        return reply + check;
    }

    std::vector<Arrival> Answer() {
        Require(form_.ParameterGrid().Redraw, "the grid is redrawn behind a read builder");
        // What should have come by now met a closed port.
        onTheLine_.erase(onTheLine_.begin(), onTheLine_.upper_bound(line_.Time()));
        std::vector<Arrival> arrivals;
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

    std::string TakeOffTheLine() {
        std::string bytes = onTheLine_.begin()->second;
        onTheLine_.erase(onTheLine_.begin());
        return bytes;
    }

    // --- The events ---

    struct Counters {
        std::int32_t incomplete;
        std::int32_t noReply;
        std::int32_t checkError;
    };
    Counters Count() const { return {form_.IncompleteCount, form_.NoReplyCount, form_.CheckErrorCount}; }

    void Receive() {
        const std::string reply = BytesOf(form_.ReplyText) + TakeOffTheLine();
        const Counters before = Count();
        const int blocksBefore = blocks_;
        const std::vector<Text> readings = Readings();
        const bool wasRunning = form_.IsRunning();
        PortReceives(form_);
        const Counters after = Count();
        const bool isComplete = form_.ReplyText.empty();
        Require(blocks_ == blocksBefore + (isComplete ? 1 : 0), "each complete reply makes one block");
        Require(after.noReply == before.noReply && after.incomplete == before.incomplete,
                "bytes that come are neither missing nor incomplete");
        const int errors = isComplete && !IsGood(reply) ? 1 : 0;
        Require(after.checkError - before.checkError == errors, "a wrong check word counts once");
        Require(isComplete || BytesOf(form_.ReplyText) == reply, "what has come stands in ReplyText");
        if (!isComplete || !MayBeDecoded(reply)) Require(Readings() == readings, "only data reach the grid");
        const int function = isComplete ? FunctionOf(reply) : -1;
        const bool isStopped = function == 0x83 || function == 0x86;
        if (dialogs_.Shown.empty())
            Require(form_.IsRunning() == (wasRunning && !isStopped), "exceptions 83 and 86 stop the polling");
        CheckState();
    }

    void Tick(int index) {
        const Counters before = Count();
        const bool hasBytes = form_.CycleStep == 3;
        TimerTicks(form_, index);
        const Counters after = Count();
        const std::int32_t failures = after.noReply + after.incomplete - before.noReply - before.incomplete;
        Require(failures == 0 || (failures == 1 && index == 1), "a wait ends once");
        Require(after.checkError == before.checkError, "a time-out is no check error");
        if (failures == 1) {
            Require((after.incomplete > before.incomplete) == hasBytes, "bytes make a reply incomplete");
            Require(form_.ReplyText.empty() && form_.CycleStep == 1, "the next frame starts afresh");
        }
        CheckState();
    }

    void CheckState() {
        const Grid& grid = form_.ParameterGrid();
        // A silent instrument of code 51 is walked over once a frame.
        Require(form_.CurrentRow >= 0 && form_.CurrentRow <= kFurthestRow + kMostFrames,
                "CurrentRow stays near the grid");
        Require(grid.Cols() == column::kCount && grid.Row < grid.Rows() && grid.Col < grid.Cols(),
                "the current cell is in the grid");
        for (const testing::ShownBox& box : dialogs_.Shown) CheckBox(box);
    }

    void CheckBox(const testing::ShownBox& box) const {
        const bool isKnown = box.number == 6 || box.number == 13 || box.number == 76 ||
                             (box.number == 0 && box.text.starts_with(u"对不起"));
        Require(isKnown, "a handler ends with a known error only");
    }

    FuzzedDataProvider& input_;
    testing::VirtualLine line_;
    testing::FakeDialogs dialogs_;
    testing::FakeProgramFiles files_;
    testing::FakeSettings settings_;
    testing::FakeProgram program_;
    Session session_;
    MainForm& form_;
    int blocks_ = 0;
    std::vector<Text> rowsAtStart_;
    std::multimap<std::int64_t, std::string> onTheLine_;  // by time of arrival
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
