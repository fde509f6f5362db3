// Replies of any kind to a session that polls an instrument in ASCII digits, through the receive event.
//
// The input begins with the set-up of the session and the rows of its grid; the rest is what the far end
// answers, in pieces and with delays that it chooses itself. Each event is followed by a look at what the
// session promises.

#include <algorithm>
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

class PollingSession : public FuzzedSession {
  public:
    explicit PollingSession(FuzzedDataProvider& input) : FuzzedSession(input) {
        SetUpForm();
        SetUpRows();
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
        BeginWithTheseRows(22);
    }

    // --- The far end ---

    std::string AnyReply() override {
        std::string reply = input_.ConsumeRandomLengthString(kLongestPiece);
        if (!input_.ConsumeBool()) return reply;
        static constexpr char kDigits[] = "0123456789ABCDEF";
        if (input_.ConsumeBool()) {
            for (char& character : reply) character = kDigits[static_cast<unsigned char>(character) % 16];
        }
        reply = std::string(":01") + input_.PickValueInArray(kFunctions) + "02" + reply;
        return reply + CheckWord(code_, reply) + "\r\n";
    }

    void BeforeAnswer(const std::string&) override {}

    // --- The events ---

    void Receive() override {
        reply_ += TakeOffTheLine();
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

    void Tick(int index) override {
        if (TickEndsAWait(index)) reply_.clear();
        CheckState();
    }

    void CheckState() {
        Require(form_.IsRunning() || !dialogs_.Shown.empty(), "only an error stops the polling");
        CheckGrid(22);
        CheckBoxes({5, 6, 9, 13, 76});
    }

    std::int16_t code_ = 0;
    std::string reply_;  // what has come of the reply
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
