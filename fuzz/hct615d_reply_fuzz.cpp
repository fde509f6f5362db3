// Replies of any kind to a session that polls an HCT615D flow meter, through the receive event.
//
// The input begins with the set-up of the session; the rest is what the far end answers, in pieces and with
// delays that it chooses itself. Each event is followed by a look at what the session promises.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "fuzz/special_session.h"

namespace commtest::fuzz {

namespace {

constexpr std::size_t kWholeReply = 64;
constexpr std::size_t kFirstCovered = 34;  // from 0
constexpr std::size_t kCheckBytes = 58;
constexpr std::size_t kFirstValue = 47;

constexpr std::array<TextView, 5> kAddresses = {u"01", u"FF", u"100", u"1", u""};
constexpr std::array<std::int32_t, 10> kCommandCodes = {31, 10, 20, 40, 50, 0, 101, 150, 200, 1000};

// Digits of the values, counted from 1, that a row shows.
struct Value {
    int row;
    int first;
    int count;
    int beforePoint;  // 0: it has none
};
constexpr std::array<Value, 4> kValues = {{{6, 1, 4, 0}, {7, 5, 4, 2}, {8, 9, 6, 4}, {9, 15, 8, 0}}};

// The sum and the exclusive or of the bytes that they cover.
std::string CheckBytes(const std::string& reply) {
    unsigned sum = 0;
    unsigned exclusiveOr = 0;
    for (std::size_t at = kFirstCovered; at < kCheckBytes; ++at) {
        sum += static_cast<unsigned char>(reply[at]);
        exclusiveOr ^= static_cast<unsigned char>(reply[at]);
    }
    return {static_cast<char>(sum % 256), static_cast<char>(exclusiveOr)};
}

class PollingSession : public SpecialSession {
  public:
    explicit PollingSession(FuzzedDataProvider& input) : SpecialSession(input, 42, kWholeReply) {
        form_.AddressText = OneOf(input_, kAddresses);
        form_.CommandCode = commandCode_ = input_.PickValueInArray(kCommandCodes);
        MakeRows();
        BeginWithTheseReadings();
        currentRow_ = form_.CurrentRow;
    }

  private:
    // --- The far end ---

    std::string AnyReply() override {
        std::string reply = input_.ConsumeRandomLengthString(kLongestPiece);
        if (!input_.ConsumeBool()) return reply;
        if (input_.ConsumeBool()) reply.insert(0, kFirstValue, '\x07');
        reply.resize(std::max(reply.size(), kWholeReply));
        std::string checks = CheckBytes(reply);
        if (input_.ConsumeBool()) checks[input_.ConsumeBool() ? 1 : 0] ^= 0x10;
        return reply.replace(kCheckBytes, checks.size(), checks);
    }

    // --- The events ---

    void TakeRequest(bool) override {}

    void TakeTimeOut() override { ShowValues({}); }

    void TakeReply(const Outcome& outcome, const std::string& reply) override {
        const bool isGood = reply.compare(kCheckBytes, 2, CheckBytes(reply)) == 0;
        Require(outcome.verdict.check == (isGood ? CheckWord::Right : CheckWord::Wrong),
                "the check bytes decide on a whole reply");
        Require(outcome.verdict.answer == Answer::Data, "every reply brings data");
        ShowValues(isGood ? HexDigits(reply.substr(kFirstValue, kCheckBytes - kFirstValue)) : Text());
    }

    void CheckOperation() const override {
        Require(form_.CurrentRow == currentRow_, "CurrentRow stays");
        Require(form_.CommandCode == commandCode_, "polling leaves its code");
    }

    // The digits of the eleven value bytes, or none; the points stand in either case.
    void ShowValues(const Text& digits) {
        for (const Value& value : kValues) {
            const Text own = Mid(digits, value.first, value.count);
            const Text pointed = Left(own, value.beforePoint) + u"." + Mid(own, value.beforePoint + 1);
            Row(value.row).digits = own;
            Row(value.row).scaled = value.beforePoint > 0 ? pointed : own;
        }
    }

    std::int32_t commandCode_ = 0;
    std::int16_t currentRow_ = 0;
};

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    commtest::fuzz::PollingSession(input).Run();
    return 0;
}
