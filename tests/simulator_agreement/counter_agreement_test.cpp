// The program against simulated instruments on a bad line, over many thousand exchanges in virtual time: what
// the line did to the replies is what the program has counted, to the last frame.

#include <gtest/gtest.h>

#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/toolbar_commands.h"
#include "simulator/bus.h"
#include "support/bench_session.h"

namespace commtest {
namespace {

using simulator::FaultRates;
using testing::Arrival;
using testing::BenchSession;
using testing::TestParameter;

constexpr int kExchanges = 20000;
constexpr int kTurnaround = 5;  // milliseconds
constexpr std::uint64_t kSeed = 7;

constexpr int kFirstDynamicRow = 6;
constexpr int kFirstStaticRow = 8;
constexpr int kLastRow = 27;

// Five commands, two dynamic parameters, twenty static ones of two bytes; each holds its row's number.
struct ListRow {
    std::string address;
    std::string length;
    std::string attribute;
};

std::vector<ListRow> Rows(int code) {
    std::vector<ListRow> rows(kFirstDynamicRow - 1, {"0000", "3", "W"});
    const std::string lengthCharacter = code == 12 ? "2" : "0";
    const auto addRow = [&](int address, const char* attribute) {
        const Text digits = FittedToWidth(HexOf(static_cast<double>(address)), 3);
        rows.push_back({lengthCharacter + ToUtf8(digits), "2", attribute});
    };
    for (int row = kFirstDynamicRow; row < kFirstStaticRow; ++row) addRow(0x10 + 2 * row, "D");
    for (int row = kFirstStaticRow; row <= kLastRow; ++row) addRow(0x100 + 2 * row, "RW");
    return rows;
}

std::vector<TestParameter> ListOfProgram(int code) {
    std::vector<TestParameter> list;
    for (const ListRow& row : Rows(code)) {
        list.push_back({u"参数", FromUtf8(row.address), FromUtf8(row.length), FromUtf8(row.attribute), u"0"});
    }
    return list;
}

simulator::Instrument SimulatedInstrument(int code, int partLength) {
    std::vector<simulator::Parameter> list;
    for (const ListRow& row : Rows(code)) {
        const auto number = static_cast<double>(list.size() + 1);
        list.push_back({"参数",
                        row.address,
                        row.length,
                        row.attribute,
                        "0",
                        {},
                        {},
                        simulator::Behaviour::Constant(number)});
    }
    return {code, 1, "仪表", list, partLength};
}

// A session that polls a simulated instrument.
class PolledInstrument : public BenchSession {
  public:
    PolledInstrument(int code, std::int32_t commandCode, const FaultRates& rates, int partLength = 0)
        : bus({SimulatedInstrument(code, partLength)}, rates, kSeed, kTurnaround) {
        const Text protocol(Form().protocols.Of(code).name);
        Add(u"仪表", protocol, WholeText(code) + u"0100", ListOfProgram(code));
        Choose(protocol, u"仪表");
        Form().AddressText = u" 30 31";
        Form().CommandCode = commandCode;
        Form().CurrentRow = kFirstStaticRow;
        line.KeepsFrames = false;
        line.Answer = [this](const std::string& frame) { return Answer(frame); };
    }

    // Polls that many times; the last exchange comes to its end.
    void Poll(int exchanges) {
        constexpr std::int64_t kLongestExchange = 5000;  // milliseconds
        const std::int64_t latest = exchanges * kLongestExchange;
        Press(toolbar::kStartStop);
        line.RunWhile([&] { return Form().SendCount < exchanges; }, latest);
        line.RunWhile([&] { return Form().CycleStep != 1; }, latest);
    }

    simulator::Bus bus;

  private:
    std::vector<Arrival> Answer(const std::string& frame) {
        std::vector<Arrival> arrivals;
        for (const simulator::Chunk& chunk : bus.Receive(frame, static_cast<double>(line.Time()))) {
            arrivals.emplace_back(chunk.delayMs, chunk.bytes);
        }
        return arrivals;
    }
};

void ExpectAgreement(PolledInstrument& polled) {
    const simulator::InstrumentCounts counts = polled.bus.Total();
    EXPECT_EQ(polled.bus.IgnoredFrames(), 0);
    EXPECT_EQ(counts.refusals, 0);
    EXPECT_EQ(polled.Form().SendCount, counts.requests);
    EXPECT_EQ(polled.Form().NoReplyCount, counts.faults.drops);
    EXPECT_EQ(polled.Form().IncompleteCount, counts.faults.truncations);
    EXPECT_EQ(polled.Form().CheckErrorCount, counts.faults.corruptions);
    EXPECT_TRUE(polled.dialogs.Shown.empty());
}

void ExpectEveryValue(PolledInstrument& polled) {
    const bool readsParameters = polled.Form().CommandCode >= command::kReadThisRow;
    for (int row = readsParameters ? kFirstStaticRow : kFirstDynamicRow; row <= kLastRow; ++row) {
        EXPECT_EQ(polled.Cell(row, column::kValue), std::to_string(row)) << row;
    }
}

// That each fault of the situation did happen, about as often as it should.
void ExpectFaults(const simulator::FaultCounts& faults, const FaultRates& rates) {
    const auto expectHappened = [](const char* fault, long count, double rate) {
        EXPECT_EQ(count > 0, rate > 0) << fault;
        EXPECT_GE(static_cast<double>(count), rate * kExchanges / 2) << fault;
    };
    expectHappened("drop", faults.drops, rates.drop);
    expectHappened("truncate", faults.truncations, rates.truncate);
    expectHappened("corrupt", faults.corruptions, rates.corrupt);
    expectHappened("split", faults.splits, rates.split);
    expectHappened("delay", faults.delays, rates.delay);
}

void ExpectAgreementUnder(int code, std::int32_t commandCode, const FaultRates& rates) {
    SCOPED_TRACE(code);
    PolledInstrument polled(code, commandCode, rates);
    polled.Poll(kExchanges);
    ExpectAgreement(polled);
    ExpectFaults(polled.bus.Total().faults, rates);
    if (commandCode != command::kReadThisRow) ExpectEveryValue(polled);
}

// Under all three codes, dynamic and static reads in turn.
void ExpectAgreementUnder(const FaultRates& rates) {
    for (const int code : {11, 12, 13}) ExpectAgreementUnder(code, command::kReadDynamicTurn, rates);
}

const FaultRates kAllTogether = {.drop = 0.05, .corrupt = 0.05, .truncate = 0.05, .split = 0.2, .delay = 0.2};

TEST(CounterAgreement, GoodLineCountsNoFailure) { ExpectAgreementUnder({}); }

TEST(CounterAgreement, DroppedReplyIsOneMissingReply) { ExpectAgreementUnder({.drop = 0.1}); }

TEST(CounterAgreement, TruncatedReplyIsOneIncompleteReply) { ExpectAgreementUnder({.truncate = 0.1}); }

TEST(CounterAgreement, CorruptReplyIsOneCheckError) { ExpectAgreementUnder({.corrupt = 0.1}); }

TEST(CounterAgreement, SplitAndDelayedRepliesCountAsGood) {
    ExpectAgreementUnder({.split = 0.3, .delay = 0.3});
}

TEST(CounterAgreement, AllFaultsTogetherAreToldApart) { ExpectAgreementUnder(kAllTogether); }

TEST(CounterAgreement, AllFaultsTogetherAreToldApartRowByRow) {
    for (const int code : {11, 12}) ExpectAgreementUnder(code, command::kReadRowByRow, kAllTogether);
}

TEST(CounterAgreement, AllFaultsTogetherAreToldApartInGroups) {
    for (const int code : {11, 12}) ExpectAgreementUnder(code, command::kReadSeveralRows, kAllTogether);
}

// A single read of code 13 does not find its way back from the end of the list.
TEST(CounterAgreement, AllFaultsTogetherAreToldApartOnOneRow) {
    ExpectAgreementUnder(13, command::kReadThisRow, kAllTogether);
}

TEST(CounterAgreement, PartsSplitAndDelayedLoseNothing) {
    for (const int code : {11, 12, 13}) {
        SCOPED_TRACE(code);
        constexpr int kPartLength = 6;  // bytes: three rows
        PolledInstrument polled(code, command::kReadDynamicTurn, {.split = 0.3, .delay = 0.3}, kPartLength);
        polled.Poll(kExchanges);
        ExpectAgreement(polled);
        EXPECT_GT(polled.bus.Total().continueBytes, kExchanges / 2);
        ExpectEveryValue(polled);
    }
}

}  // namespace
}  // namespace commtest
