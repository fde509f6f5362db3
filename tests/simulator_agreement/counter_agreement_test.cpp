// The program against simulated instruments on a bad line, over many thousand exchanges in virtual time: what
// the line did to the replies is what the program has counted, to the last frame.

#include <gtest/gtest.h>

#include "simulator_agreement/polled_instrument.h"

namespace commtest {
namespace {

using simulator::FaultRates;
using testing::ExpectAgreement;
using testing::ExpectFaults;
using testing::kAllTogether;
using testing::kExchanges;
using testing::SharedRow;

constexpr int kFirstDynamicRow = 6;
constexpr int kFirstStaticRow = 8;
constexpr int kLastRow = 27;

// Five commands, two dynamic parameters, twenty static ones of two bytes; each holds its row's number.
std::vector<SharedRow> Rows(int code) {
    std::vector<SharedRow> rows;
    const std::string lengthCharacter = code == 12 ? "2" : "0";
    const auto addRow = [&](const std::string& address, const char* length, const char* attribute) {
        rows.push_back({"参数", address, length, attribute, static_cast<double>(rows.size() + 1)});
    };
    const auto addParameter = [&](int address, const char* attribute) {
        const Text digits = FittedToWidth(HexOf(static_cast<double>(address)), 3);
        addRow(lengthCharacter + ToUtf8(digits), "2", attribute);
    };
    for (int row = 1; row < kFirstDynamicRow; ++row) addRow("0000", "3", "W");
    for (int row = kFirstDynamicRow; row < kFirstStaticRow; ++row) addParameter(0x10 + 2 * row, "D");
    for (int row = kFirstStaticRow; row <= kLastRow; ++row) addParameter(0x100 + 2 * row, "RW");
    return rows;
}

struct PolledInstrument : testing::PolledInstrument {
    PolledInstrument(int code, std::int32_t commandCode, const FaultRates& rates, int partLength = 0)
        : testing::PolledInstrument({code}, Rows(code), u" 30 31", rates, partLength) {
        Form().CommandCode = commandCode;
        Form().CurrentRow = kFirstStaticRow;
    }
};

void ExpectEveryValue(PolledInstrument& polled) {
    const bool readsParameters = polled.Form().CommandCode >= command::kReadThisRow;
    for (int row = readsParameters ? kFirstStaticRow : kFirstDynamicRow; row <= kLastRow; ++row) {
        EXPECT_EQ(polled.Cell(row, column::kValue), std::to_string(row)) << row;
    }
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
