// The same for instruments of Modbus RTU and Modbus ASCII, over reads: how the answer to a write ends is told
// by its own bytes.

#include <gtest/gtest.h>

#include "simulator_agreement/polled_instrument.h"

namespace commtest {
namespace {

using simulator::FaultRates;
using testing::ExpectAgreement;
using testing::ExpectFaults;
using testing::kAllTogether;
using testing::kExchanges;
using testing::PolledInstrument;
using testing::SharedRow;

constexpr simulator::Model kRtu = {31, 1};
constexpr simulator::Model kAscii = {21, 1};
constexpr simulator::Model kAsciiCustom01 = {22, 5};

constexpr int kFirstRow = 6;
constexpr int kLastRow = 25;

// Twenty parameters of one register each behind the five rows of the head; each holds its row's number.
std::vector<SharedRow> Rows(const simulator::Model& model) {
    std::vector<SharedRow> rows(kFirstRow - 1, {"头", "0000", "2", "R", 0});
    for (int row = kFirstRow; row <= kLastRow; ++row) {
        const Text address = FittedToWidth(HexOf(static_cast<double>(0x10 + row)), 4);
        rows.push_back(
            {"参数", ToUtf8(address), model.code == 22 ? "5" : "2", "R", static_cast<double>(row)});
    }
    return rows;
}

std::string Poll(const simulator::Model& model, std::int32_t commandCode, const FaultRates& rates,
                 const std::string& limit = "16") {
    SCOPED_TRACE(model.code);
    PolledInstrument polled(model, Rows(model), u"01", rates);
    polled.Form().CommandCode = commandCode;
    polled.Form().ConDataNub.Set(FromUtf8(limit));
    polled.Poll(kExchanges);
    ExpectAgreement(polled);
    ExpectFaults(polled.bus.Total().faults, rates);
    EXPECT_TRUE(polled.Form().IsRunning());
    std::string values;
    for (int row = kFirstRow; row <= kLastRow; ++row) values += polled.Cell(row, column::kValue) + " ";
    return values;
}

constexpr const char* kEveryValue = "6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 ";

// Row by row, by each framing and each check word.
void ExpectAgreementUnder(const FaultRates& rates) {
    for (const auto& model : {kRtu, kAscii, kAsciiCustom01}) {
        const std::string values = Poll(model, command::kReadRowByRow, rates);
        EXPECT_TRUE(rates.corrupt > 0 || values == kEveryValue) << model.code << ": " << values;
    }
}

TEST(ModbusAgreement, GoodLineCountsNoFailure) { ExpectAgreementUnder({}); }

TEST(ModbusAgreement, DroppedReplyIsOneMissingReply) { ExpectAgreementUnder({.drop = 0.1}); }

TEST(ModbusAgreement, TruncatedReplyIsOneIncompleteReply) { ExpectAgreementUnder({.truncate = 0.1}); }

TEST(ModbusAgreement, CorruptReplyIsOneCheckError) { ExpectAgreementUnder({.corrupt = 0.1}); }

TEST(ModbusAgreement, SplitAndDelayedRepliesCountAsGood) {
    ExpectAgreementUnder({.split = 0.3, .delay = 0.3});
}

TEST(ModbusAgreement, AllFaultsTogetherAreToldApart) { ExpectAgreementUnder(kAllTogether); }

// n registers fill n - 1 rows under RTU and n - 2 under ASCII; the rows behind them come with the next read.
TEST(ModbusAgreement, AllFaultsTogetherAreToldApartInGroups) {
    for (const auto& model : {kRtu, kAscii}) {
        Poll(model, command::kReadSeveralRows, kAllTogether);
        EXPECT_EQ(Poll(model, command::kReadSeveralRows, {.drop = 0.1, .split = 0.3}), kEveryValue);
    }
}

TEST(ModbusAgreement, AllFaultsTogetherAreToldApartUnderEveryRtuCode) {
    for (const int code : {32, 33, 34, 35}) Poll({code, 1}, command::kReadRowByRow, kAllTogether);
}

// A silent instrument does not hold code 51 on its row.
TEST(ModbusAgreement, AllFaultsTogetherAreToldApartUnderCode51) {
    Poll({51, 1}, command::kReadRowByRow, kAllTogether);
}

// --- Writes, on a good line ---

// A value written by the program stands in the instrument, whatever the echo leaves in the grid.
TEST(ModbusAgreement, WrittenValueStandsInTheInstrument) {
    for (const auto& model : {kRtu, kAscii}) {
        auto rows = Rows(model);
        rows[kFirstRow].attribute = "RW";  // row 7
        rows[kFirstRow].name = "上限";
        PolledInstrument polled(model, rows, u"01", {});
        polled.Click(kFirstRow + 1, column::kNewValue);
        polled.TypeAndEnter(u"200");
        polled.line.RunUntil(10000);
        EXPECT_EQ(polled.bus.Total().writesAccepted, 1) << model.code;
        EXPECT_EQ(polled.bus.Instruments()[0].ValueOf("上限", 0), 200.0) << model.code;
        EXPECT_EQ(polled.Cell(kFirstRow + 1, column::kValue), "200") << model.code;
        ExpectAgreement(polled);
    }
}

// --- What the program takes for a failure on a good line ---

// The check word of a sum of 256 is "00" on the line and "100" in the program.
TEST(ModbusAgreement, AsciiReplyWithTheCheckWord00IsACheckError) {
    auto rows = Rows(kAscii);
    rows[kFirstRow - 1].value = 250;  // 01 03 02 00 FA
    PolledInstrument polled(kAscii, rows, u"01", {});
    polled.Form().CommandCode = command::kReadThisRow;
    polled.Poll(40);  // twice through the rows
    EXPECT_EQ(polled.Form().CheckErrorCount, 2);
    EXPECT_EQ(polled.Cell(kFirstRow, column::kValue), "250");
}

TEST(ModbusAgreement, RefusedReadStopsRtuPollingAndDoesNotStopAscii) {
    for (const auto& model : {kRtu, kAscii}) {
        PolledInstrument polled(model, Rows(model), u"01", {});
        polled.Form().ParameterGrid().SetCell(kFirstRow, column::kAddress, u"0FF0");
        polled.Poll(1);
        polled.line.RunUntil(polled.line.Time() + 2000);
        EXPECT_EQ(polled.bus.Total().refusals, 1) << model.code;
        EXPECT_EQ(polled.Form().IsRunning(), model.code == 21);
        EXPECT_EQ(polled.Form().CheckErrorCount, 0);
    }
}

}  // namespace
}  // namespace commtest
