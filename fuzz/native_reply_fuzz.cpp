// Replies of any kind to a polling session of the native family, through the receive event.
//
// The input begins with the set-up of the session and the rows of its grid; the rest is what the far end
// answers, in pieces and with delays that it chooses itself. Each event is followed by a look at what the
// session promises.

#include <array>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "fuzz/fuzzed_session.h"
#include "fuzz/require.h"
#include "runtime/number.h"

namespace commtest::fuzz {

namespace {

constexpr std::array<TextView, 5> kNames = {u"参数", u"小数点", u"虚拟小数点", u"", u"系数"};
constexpr std::array<TextView, 8> kAddresses = {u"0000", u"0010", u"2010", u"0012",
                                                u"",     u"FFFE", u"温度", u"012"};
constexpr std::array<TextView, 12> kLengths = {u"2", u"1",  u"4",  u"8",   u"3",   u"",
                                               u"0", u"16", u"-1", u"1.5", u"1E9", u"字节"};
constexpr std::array<TextView, 9> kAttributes = {u"RW", u"D", u"R", u"S", u"W", u"", u"RS", u"SW", u"RW2"};
constexpr std::array<TextView, 8> kDecimals = {u"0", u"1", u"2", u"0010", u"", u"4", u"5", u"x"};
constexpr std::array<TextView, 7> kValues = {u"", u"", u"1", u"3", u"-1", u"9", u"x"};
constexpr std::array<TextView, 4> kDelays = {u"100", u"0", u"1000", u"快"};
constexpr std::array<TextView, 5> kLimits = {u"16", u"4", u"300", u"0", u"多"};
constexpr std::array<std::int32_t, 12> kCommandCodes = {31, 20, 10, 50, 60, 40, 30, 32, 131, 231, 160, 70};

// The verdict on a reply's check word, told from its bytes.
bool IsGood(int code, const std::string& reply) {
    if (reply.size() < 8) return false;
    int sum = 0;
    int exclusiveOr = 0;
    for (const char byte : reply.substr(1, reply.size() - 4)) {
        sum += static_cast<unsigned char>(byte);
        exclusiveOr ^= static_cast<unsigned char>(byte);
    }
    constexpr int kMostOf16Bits = 32767;
    if (code == 12 && sum > kMostOf16Bits) return false;
    char word[3];
    std::snprintf(word, sizeof word, "%02X", code == 12 ? sum & 0xFF : exclusiveOr);
    return reply.compare(reply.size() - 3, 2, word) == 0;
}

std::string WithCheckWord(int code, const std::string& content) {
    for (int word = 0; word < 256; ++word) {
        char end[4];
        std::snprintf(end, sizeof end, "%02X\r", word);
        if (IsGood(code, content + end)) return content + std::string(end, 2);
    }
    return content;
}

class PollingSession : public FuzzedSession {
  public:
    explicit PollingSession(FuzzedDataProvider& input) : FuzzedSession(input) {
        SetUpForm();
        SetUpRows();
    }

  private:
    void SetUpForm() {
        code_ = input_.PickValueInArray<std::int16_t>({11, 12, 13});
        form_.ProtocolCode = code_;
        form_.MeterCodeText = WholeText(code_) + u"0100";
        form_.AddressText = u" 30 31";
        form_.CommandCode = input_.PickValueInArray(kCommandCodes);
        form_.SendText = u" 40 30 31 57 33 31 45 0D";
        form_.SendCount = input_.ConsumeIntegralInRange(0, 60);
        form_.ShowMode.Show(input_.ConsumeBool() ? 1 : 0);
        form_.ConDelayTime.Set(OneOf(input_, kDelays));
        form_.ConDataNub.Set(OneOf(input_, kLimits));
        form_.Check2.Set(input_.ConsumeBool());
        form_.ConAutoSave[0].Set(input_.ConsumeBool());
        form_.ConAutoSave[1].Set(input_.ConsumeBool());
        files_.HasRecordFolder = input_.ConsumeBool();
        framesBefore_ = form_.SendCount;
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
            grid.SetCell(row, column::kValue, OneOf(input_, kValues));
        }
        BeginWithTheseRows(22);
    }

    // --- The far end ---

    std::string AnyReply() override {
        std::string reply = input_.ConsumeRandomLengthString(kLongestPiece);
        if (!input_.ConsumeBool()) return reply;
        static constexpr std::array<const char*, 6> kWords = {"RR", "RD", "RE", "##", "**", "XX"};
        return WithCheckWord(code_, std::string("@01") + input_.PickValueInArray(kWords) + reply) +
               (input_.ConsumeBool() ? '\r' : '\n');
    }

    void BeforeAnswer(const std::string& frame) override {
        if (frame != "\n") Require(form_.ParameterGrid().Redraw, "the grid is redrawn behind a read builder");
    }

    // --- The events ---

    void Receive() override {
        reply_ += TakeOffTheLine();
        const Counters before = Count();
        const int blocksBefore = blocks_;
        const std::size_t errorsBefore = dialogs_.Shown.size();
        PortReceives(form_);
        const Counters after = Count();
        const bool isComplete = form_.ReplyText.empty();
        Require(blocks_ == blocksBefore + (isComplete ? 1 : 0), "each complete reply makes one block");
        Require(after.noReply == before.noReply && after.incomplete == before.incomplete,
                "bytes that come are neither missing nor incomplete");
        if (isComplete) {
            CheckCompleteReply(before, after);
        } else {
            Require(form_.CycleStep == 3 && after.checkError == before.checkError,
                    "an open reply is not judged");
            Require(form_.ReplyText.size() == 3 * reply_.size(), "what has come stands in ReplyText");
            Require(!Contains(form_.ReplyText, u"0A") && !Contains(form_.ReplyText, u"0D"),
                    "a line end completes a reply");
        }
        if (dialogs_.Shown.size() == errorsBefore) {
            Require(form_.Timer1[1].Enabled(), "the cycle goes on behind a receive event");
        }
        CheckState();
    }

    void CheckCompleteReply(const Counters& before, const Counters& after) {
        Require(form_.CycleStep == 1 || form_.CycleStep == 7, "a complete reply sets the cycle ready");
        const int errors = IsGood(code_, reply_) ? 0 : 1;
        Require(after.checkError - before.checkError == errors, "a wrong check word counts once");
        reply_.clear();
        Require(after.sent - before.sent <= 1, "a reply is followed by one continue byte at most");
        if (after.sent > before.sent) {
            Require(form_.SendText == u" 0A" && form_.CycleStep == 7, "the continue byte stands in SendText");
            Require(after.checkError == before.checkError, "nothing asks for a part behind a bad one");
        }
    }

    void Tick(int index) override {
        if (TickEndsAWait(index)) reply_.clear();
        CheckState();
    }

    void CheckState() {
        CheckGrid(22);
        Require(form_.SendCount - framesBefore_ == static_cast<std::int32_t>(line_.FrameCount()),
                "each frame is counted");
        CheckSample(form_.StaticSample, u" 52 52");
        CheckSample(form_.DynamicSample, u" 52 44");
        CheckBoxes({5, 6, 9, 13, 76});
    }

    void CheckSample(const HexText& sample, TextView word) const {
        if (sample.empty()) return;
        std::string bytes;
        for (int at = 2; at < Len(sample); at += 3) bytes += static_cast<char>(HexParse(Mid(sample, at, 2)));
        Require(Mid(sample, 10, 6) == word && IsGood(code_, bytes), "a sample is a good reply of its kind");
    }

    std::int16_t code_ = 0;
    std::int32_t framesBefore_ = 0;
    std::string reply_;  // what has come of the reply
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
