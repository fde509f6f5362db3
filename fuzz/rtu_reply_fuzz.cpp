// Replies of any kind to a session that polls an RTU instrument, through the receive event.
//
// The input begins with the set-up of the session and the rows of its grid; the rest is what the far end
// answers, in pieces and with delays that it chooses itself. Each event is followed by a look at what the
// session promises. A session that an exception has stopped is started again.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "fuzz/fuzzed_session.h"
#include "fuzz/require.h"
#include "runtime/number.h"

namespace commtest::fuzz {

namespace {

constexpr int kMostStarts = 5;
constexpr int kMostRows = 20;
constexpr std::int16_t kFurthestRow = 22;  // that a session begins at

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

class PollingSession : public FuzzedSession {
  public:
    explicit PollingSession(FuzzedDataProvider& input) : FuzzedSession(input) {
        SetUpForm();
        SetUpRows();
    }

    // A session that an exception has stopped is started again.
    void Run() override {
        for (int start = 0; start < kMostStarts && !form_.IsRunning(); ++start) Poll();
        Finish();
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
        BeginWithTheseRows(kFurthestRow);
    }

    // --- The far end ---

    std::string AnyReply() override {
        const std::string data = input_.ConsumeRandomLengthString(kLongestPiece);
        if (!input_.ConsumeBool()) return data;
        std::string reply = {1, static_cast<char>(input_.PickValueInArray(kFunctions))};
        if (input_.ConsumeBool()) reply += static_cast<char>(data.size());
        reply += data;
        std::string check = CheckBytes(reply);
        if (input_.ConsumeBool()) check[0] ^= 1;
        return reply + check;
    }

    void BeforeAnswer(const std::string&) override {
        Require(form_.ParameterGrid().Redraw, "the grid is redrawn behind a read builder");
        // What should have come by now met a closed port.
        onTheLine_.erase(onTheLine_.begin(), onTheLine_.upper_bound(line_.Time()));
    }

    // --- The events ---

    std::vector<Text> Readings() const { return Columns(column::kSingleRead, column::kScaledValue); }

    void Receive() override {
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

    // What came behind the stop of a session stands in front of the next reply.
    bool HasBytes() const override { return form_.CycleStep == 3; }

    void Tick(int index) override {
        TickEndsAWait(index);
        CheckState();
    }

    void CheckState() {
        // A silent instrument of code 51 is walked over once a frame.
        CheckGrid(kFurthestRow + kMostFrames);
        CheckBoxes({6, 13, 76});
    }
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
