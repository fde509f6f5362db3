// Replies of any kind to a session that polls an instrument in ASCII digits, through the receive event.
//
// The input begins with the set-up of the session and the rows of its grid; the rest is what the far end
// answers, in pieces and with delays that it chooses itself. Each event is followed by a look at what the
// parsers promise.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
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
constexpr std::int64_t kLongestRun = 400000;  // milliseconds
constexpr int kLongestPiece = 80;
constexpr int kCharacterSumCode = 22;

constexpr std::array<TextView, 4> kNames = {u"参数", u"电压变比", u"", u"变比"};
constexpr std::array<TextView, 7> kAddresses = {u"0010", u"0011", u"0012", u"4010", u"", u"FFFF", u"温度"};
constexpr std::array<TextView, 12> kLengths = {u"2", u"4",  u"5",  u"1",   u"8",   u"",
                                               u"0", u"16", u"-1", u"2.5", u"1E9", u"字节"};
constexpr std::array<TextView, 5> kAttributes = {u"R", u"RW", u"W", u"", u"S"};
constexpr std::array<TextView, 9> kDecimals = {u"0", u"1", u"2", u"4", u"-1", u"", u"400", u"0.5", u"x"};
constexpr std::array<TextView, 4> kDelays = {u"100", u"0", u"1000", u"快"};
constexpr std::array<TextView, 5> kLimits = {u"16", u"4", u"300", u"0", u"多"};
constexpr std::array<std::int32_t, 10> kCommandCodes = {31, 50, 60, 40, 10, 131, 160, 80, 90, 32};
constexpr std::array<const char*, 14> kFunctions = {"03", "06", "81", "82", "83", "84", "85",
                                                    "86", "87", "88", "04", "10", "8A", "G3"};

template <std::size_t N>
Text OneOf(FuzzedDataProvider& input, const std::array<TextView, N>& choices) {
    return Text(input.PickValueInArray(choices));
}

int DigitOf(char character) {
    const std::string digits = "0123456789ABCDEF";
    const auto at = digits.find(static_cast<char>(std::toupper(static_cast<unsigned char>(character))));
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

// A pair as far as its digits go; a last one may be a single digit.
int ValueOfPair(const std::string& pair) {
    const int high = DigitOf(pair[0]);
    const int low = pair.size() > 1 ? DigitOf(pair[1]) : -1;
    if (high < 0) return 0;
    return low < 0 ? high : 16 * high + low;
}

int SumOfPairs(const std::string& text) {
    const std::size_t half = text.size() / 2;
    const bool roundsUp = text.size() % 2 != 0 && half % 2 != 0;
    int sum = 0;
    for (std::size_t pair = 0; pair < half + (roundsUp ? 1 : 0); ++pair)
        sum += ValueOfPair(text.substr(2 * pair, 2));
    return sum;
}

// The check word over all that stands before it, told from its bytes; empty for a sum beyond its width.
std::string CheckWord(int code, std::string text) {
    constexpr int kMostOf16Bits = 32767;
    if (text.find(':') != std::string::npos) text.erase(0, 1);
    int sum = 0;
    for (const char character : text) sum += static_cast<unsigned char>(character);
    if (code != kCharacterSumCode) sum = SumOfPairs(text);
    if (sum > kMostOf16Bits) return {};
    const bool hasThreeDigits = code != kCharacterSumCode && sum % 256 == 0;
    char word[4];
    std::snprintf(word, sizeof word, "%02X", hasThreeDigits ? 256 : (256 - sum % 256) % 256);
    return word;
}

// Bytes that are no plain character, and line ends before the last one, change on their way through the text.
bool IsGood(int code, const std::string& reply) {
    if (reply.size() < 4) return false;
    const std::string covered = reply.substr(0, reply.size() - 4);
    const bool isPlain = std::all_of(covered.begin(), covered.end(), [](char character) {
        return static_cast<unsigned char>(character) < 0x80 && character != '\r' && character != '\n';
    });
    return isPlain && reply.substr(covered.size(), 2) == CheckWord(code, covered);
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
        RunEvent(form_, [this] { RunToolbarCommand(form_, toolbar::kStartStop); });
        const auto goesOn = [this] {
            return input_.remaining_bytes() > 0 && line_.FrameCount() < kMostFrames &&
                   form_.Timer1[1].Enabled();
        };
        line_.RunWhile(goesOn, kLongestRun);
        line_.Answer = nullptr;
        line_.RunUntil(line_.Time() + 3000);
        Require(rowsAtStart_ == RowTexts(), "a reply touches no column of the parameter list");
    }

  private:
    void SetUpForm() {
        code_ = input_.PickValueInArray<std::int16_t>({21, 22});
        form_.ProtocolCode = code_;
        form_.MeterCodeText = WholeText(code_) + u"0100";
        form_.AddressText = u"01";
        form_.CommandCode = input_.PickValueInArray(kCommandCodes);
        form_.SendText = u" 3A 30 31 30 33 30 30 31 30 30 30 30 31 45 42 0D 0A";
        form_.ShowMode.Show(input_.ConsumeBool() ? 1 : 0);
        form_.ConDelayTime.Set(OneOf(input_, kDelays));
        form_.ConDataNub.Set(OneOf(input_, kLimits));
        form_.Check2.Set(input_.ConsumeBool());
        form_.ConAutoSave[1].Set(input_.ConsumeBool());
        files_.HasRecordFolder = input_.ConsumeBool();
    }

    void SetUpRows() {
        Grid& grid = form_.ParameterGrid();
        const int rows = input_.ConsumeIntegralInRange(1, 20);
        grid.SetSize(rows + 1, column::kCount);
        for (int row = 1; row <= rows; ++row) {
            grid.SetCell(row, column::kName, OneOf(input_, kNames));
            grid.SetCell(row, column::kAddress, OneOf(input_, kAddresses));
            grid.SetCell(row, column::kLength, OneOf(input_, kLengths));
            grid.SetCell(row, column::kAttribute, OneOf(input_, kAttributes));
            grid.SetCell(row, column::kDecimals, OneOf(input_, kDecimals));
        }
        SetUpParameterGrid(form_);
        form_.CurrentRow = input_.ConsumeIntegralInRange<std::int16_t>(0, 22);
        rowsAtStart_ = RowTexts();
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

    // What the columns of the parameter list hold, and the one for entries.
    std::vector<Text> RowTexts() const {
        const Grid& grid = form_.ParameterGrid();
        std::vector<Text> texts;
        for (int row = 0; row < grid.Rows(); ++row) {
            for (int col = column::kName; col <= column::kDecimals; ++col)
                texts.push_back(grid.Cell(row, col));
            texts.push_back(grid.Cell(row, column::kNewValue));
        }
        return texts;
    }

    // --- The far end ---

    std::string AnyReply() {
        std::string reply = input_.ConsumeRandomLengthString(kLongestPiece);
        if (!input_.ConsumeBool()) return reply;
        static constexpr char kDigits[] = "0123456789ABCDEF";
        if (input_.ConsumeBool()) {
            for (char& character : reply) character = kDigits[static_cast<unsigned char>(character) % 16];
        }
        reply = std::string(":01") + input_.PickValueInArray(kFunctions) + "02" + reply;
        return reply + CheckWord(code_, reply) + "\r\n";
    }

    std::vector<Arrival> Answer() {
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

    // --- The events ---

    struct Counters {
        std::int32_t incomplete;
        std::int32_t noReply;
        std::int32_t checkError;
    };
    Counters Count() const { return {form_.IncompleteCount, form_.NoReplyCount, form_.CheckErrorCount}; }

    void Receive() {
        reply_ += onTheLine_.begin()->second;
        onTheLine_.erase(onTheLine_.begin());
        const Counters before = Count();
        const int blocksBefore = blocks_;
        PortReceives(form_);
        const Counters after = Count();
        const bool isComplete = reply_.find('\n') != std::string::npos;
        Require(form_.ReplyText.empty() == isComplete, "a line feed completes a reply and nothing else does");
        Require(blocks_ == blocksBefore + (isComplete ? 1 : 0), "each complete reply makes one block");
        Require(after.noReply == before.noReply && after.incomplete == before.incomplete,
                "bytes that come are neither missing nor incomplete");
        const int errors = isComplete && !IsGood(code_, reply_) ? 1 : 0;
        Require(after.checkError - before.checkError == errors, "a wrong check word counts once");
        Require(isComplete || form_.ReplyText.size() == 3 * reply_.size(),
                "what has come stands in ReplyText");
        if (isComplete) reply_.clear();
        CheckState();
    }

    void Tick(int index) {
        const Counters before = Count();
        const HexText reply = form_.ReplyText;
        TimerTicks(form_, index);
        const Counters after = Count();
        const std::int32_t failures = after.noReply + after.incomplete - before.noReply - before.incomplete;
        Require(failures == 0 || (failures == 1 && index == 1), "a wait ends once");
        Require(after.checkError == before.checkError, "a time-out is no check error");
        if (failures == 1) {
            Require((after.noReply > before.noReply) == reply.empty(), "without a byte there is no reply");
            Require(form_.ReplyText.empty() && form_.CycleStep == 1, "the next frame starts afresh");
            reply_.clear();
        }
        CheckState();
    }

    void CheckState() {
        const Grid& grid = form_.ParameterGrid();
        Require(form_.IsRunning() || !dialogs_.Shown.empty(), "only an error stops the polling");
        Require(form_.CurrentRow >= 0 && form_.CurrentRow <= 22, "CurrentRow stays near the grid");
        Require(grid.Cols() == column::kCount && grid.Row < grid.Rows() && grid.Col < grid.Cols(),
                "the current cell is in the grid");
        for (const testing::ShownBox& box : dialogs_.Shown) CheckBox(box);
    }

    void CheckBox(const testing::ShownBox& box) const {
        const bool isKnown = box.number == 5 || box.number == 6 || box.number == 9 || box.number == 13 ||
                             box.number == 76 || (box.number == 0 && box.text.starts_with(u"对不起"));
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
    std::int16_t code_ = 0;
    int blocks_ = 0;
    std::vector<Text> rowsAtStart_;
    std::multimap<std::int64_t, std::string> onTheLine_;  // by time of arrival
    std::string reply_;                                   // what has come of the reply
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
