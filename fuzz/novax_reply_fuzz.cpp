// Replies of any kind to a session that polls a NOVAX instrument, through the receive event.
//
// The input begins with the set-up of the session and the rows of its grid; the rest is what the far end
// answers, in pieces and with delays that it chooses itself. The walk of each whole reply over the grid is
// worked out here once more, up to the row whose decimals end it with an error.

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>

#include "fuzz/require.h"
#include "fuzz/special_session.h"

namespace commtest::fuzz {

namespace {

constexpr std::size_t kWholeReply = 10;
constexpr int kFirstParameter = 10;
constexpr int kMostDecimals = 4;

constexpr std::array<TextView, 4> kNames = {u"参数", u"小数点", u"虚拟小数点", u""};
constexpr std::array<TextView, 8> kNumbers = {u"0010", u"0011", u"0012", u"",
                                              u"FFFF", u"温度", u"01",   u"0080"};
constexpr std::array<TextView, 3> kAttributes = {u"RW", u"S", u""};
constexpr std::array<TextView, 11> kDecimals = {u"0",    u"0010", u"0011", u"2", u"4",   u"",
                                                u"FFFF", u"x",    u"-1",   u"5", u"0012"};
constexpr std::array<TextView, 10> kValues = {u"",    u"1",   u"3",   u"旧", u"-1",
                                              u"4.7", u"1.5", u"300", u"0",  u"-70"};
constexpr std::array<TextView, 5> kAddresses = {u"1", u"84", u"128", u"300", u"x"};
constexpr std::array<TextView, 3> kWaitingFrames = {u" 81 81 43 15 01 00 45 15", u" 81 81 52 12 00 00 53 12",
                                                    u""};
constexpr std::array<std::int32_t, 10> kCommandCodes = {50, 31, 10, 40, 100, 101, 150, 200, 1000, 0};

// The hexadecimal number of 16 bits that a text begins with.
int HexNumber(const Text& text) {
    constexpr TextView kDigits = u"0123456789ABCDEF";
    int number = 0;
    for (const char16_t character : text) {
        const auto digit = kDigits.find(character);
        if (digit == TextView::npos) break;
        number = 16 * number + static_cast<int>(digit);
    }
    return static_cast<std::int16_t>(number);
}

// The decimals that a value of another row asks for.
std::optional<int> DecimalsOfReference(const Text& text) {
    const std::string value = ToUtf8(text);
    char* end = nullptr;
    const double wanted = std::strtod(value.c_str(), &end);
    if (end == value.c_str()) return std::nullopt;
    if (wanted >= kMostDecimals + 1) return 0;
    const int decimals = static_cast<int>(std::nearbyint(wanted));
    if (decimals < 0 || decimals > kMostDecimals) return std::nullopt;
    return decimals;
}

Text WithPoint(int value, int decimals) {
    std::string digits = std::to_string(std::abs(value));
    const auto behind = static_cast<std::size_t>(decimals);
    if (digits.size() <= behind) digits.insert(0, behind + 1 - digits.size(), '0');
    if (behind > 0) digits.insert(digits.size() - behind, ".");
    return FromUtf8(value < 0 ? '-' + digits : digits);
}

class PollingSession : public SpecialSession {
  public:
    explicit PollingSession(FuzzedDataProvider& input) : SpecialSession(input, 41, kWholeReply) {
        form_.AddressText = u" 81 81";
        RunEvent(form_, [this] { form_.ConMeterAddr.Set(OneOf(input_, kAddresses)); });
        form_.CommandCode = commandCode_ = input_.PickValueInArray(kCommandCodes);
        form_.SendText = waitingFrame_ = OneOf(input_, kWaitingFrames);
        SetUpRows();
    }

  private:
    void SetUpRows() {
        MakeRows();
        Grid& grid = form_.ParameterGrid();
        for (int row = 1; row < grid.Rows(); ++row) {
            grid.SetCell(row, column::kName, OneOf(input_, kNames));
            grid.SetCell(row, column::kAddress, OneOf(input_, kNumbers));
            grid.SetCell(row, column::kAttribute, OneOf(input_, kAttributes));
            grid.SetCell(row, column::kDecimals, OneOf(input_, kDecimals));
            grid.SetCell(row, column::kValue, OneOf(input_, kValues));
        }
        BeginWithTheseReadings();
        currentRow_ = form_.CurrentRow;
    }

    // --- The far end ---

    // The last two of ten bytes are a check word that nobody looks at.
    std::string AnyReply() override {
        std::string reply = input_.ConsumeRandomLengthString(kLongestPiece);
        if (input_.ConsumeBool()) reply.resize(kWholeReply);
        return reply;
    }

    // --- The events ---

    void TakeRequest(bool hasLeft) override {
        if (commandCode_ < 1 || commandCode_ > 100) {
            commandCode_ %= 100;
            Require(form_.SendText == waitingFrame_, "a frame that waits goes out as it stands");
            return;
        }
        if (currentRow_ < kFirstParameter || currentRow_ >= Rows()) currentRow_ = kFirstParameter;
        if (hasLeft) Row(currentRow_).digits.clear();
    }

    void TakeTimeOut() override {}

    void TakeReply(const Outcome& outcome, const std::string& reply) override {
        const bool isWrite = Mid(outcome.exchange.request, 8, 2) == u"43";
        Require(outcome.verdict.check == CheckWord::Right, "a whole reply passes, whatever its check word");
        Require(outcome.verdict.answer == (isWrite ? Answer::Written : Answer::Data),
                "a reply is an answer to its request");
        filledRows_.clear();
        Walk(reply);
        for (int row = 0; row < Rows(); ++row) {
            Require(outcome.rows.Holds(row) == (filledRows_.count(row) > 0), "an outcome tells its rows");
        }
    }

    void CheckOperation() const override {
        Require(form_.CurrentRow == currentRow_, "CurrentRow moves on by one behind its value");
        Require(form_.CommandCode == commandCode_, "a write leaves the rest of its code");
    }

    // --- The walk, which ends where a step fails ---

    void Walk(const std::string& reply) {
        if (!ShowWord(6, reply[1], reply[0]) || !ShowWord(7, reply[3], reply[2])) return;
        ShowByte(8, reply[4]);
        ShowByte(9, reply[5]);
        if (currentRow_ >= Rows() || !ShowParameter(reply[7], reply[6])) return;
        ++currentRow_;
    }

    bool ShowParameter(char high, char low) {
        if (form_.ParameterGrid().Cell(currentRow_, column::kAttribute) != u"S")
            return ShowWord(currentRow_, high, low);
        ShowDigits(currentRow_, {high, low});
        return true;
    }

    bool ShowWord(int row, char high, char low) {
        ShowDigits(row, {high, low});
        const auto value = static_cast<std::int16_t>(static_cast<unsigned char>(high) * 256 +
                                                     static_cast<unsigned char>(low));
        Row(row).value = WithPoint(value, 0);
        const std::optional<int> decimals = DecimalsOf(row);
        if (decimals) Row(row).scaled = WithPoint(value, *decimals);
        return decimals.has_value();
    }

    void ShowByte(int row, char byte) {
        ShowDigits(row, {byte});
        Row(row).value = Row(row).scaled = WithPoint(static_cast<unsigned char>(byte), 0);
    }

    void ShowDigits(int row, const std::string& bytes) {
        Row(row).digits = HexDigits(bytes);
        filledRows_.insert(row);
    }

    // None where they are an error. Those of another row stand in its column 8, as it is at that moment.
    std::optional<int> DecimalsOf(int row) {
        const Grid& grid = form_.ParameterGrid();
        const Text& decimals = grid.Cell(row, column::kDecimals);
        const int own = HexNumber(decimals);
        if (decimals == u"0") return 0;
        for (int other = 1; other < Rows(); ++other) {
            if (Row(other).value.empty() || HexNumber(grid.Cell(other, column::kAddress)) != own) continue;
            const Text& name = grid.Cell(other, column::kName);
            if (name.find(u"小数点") == Text::npos) break;
            return DecimalsOfReference(Row(other).value);
        }
        if (own < 0) return std::nullopt;
        return own > kMostDecimals ? 0 : own;
    }

    int Rows() const { return form_.ParameterGrid().Rows(); }

    std::int32_t commandCode_ = 0;
    Text waitingFrame_;
    int currentRow_ = 0;
    std::set<int> filledRows_;
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
