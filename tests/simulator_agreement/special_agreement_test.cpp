// The same for the two special instruments, whose counters do not know a wrong check word: of NOVAX nothing
// tells a corrupt reply, of HCT615D the verdict does.

#include <gtest/gtest.h>

#include "simulator_agreement/polled_instrument.h"

namespace commtest {
namespace {

using simulator::FaultRates;
using testing::ExpectFaults;
using testing::kAllTogether;
using testing::kExchanges;
using testing::SharedRow;

constexpr simulator::Model kNovax = {41, 1};
constexpr simulator::Model kMeter = {42, 0};

constexpr int kFirstRow = 6;
constexpr int kFirstParameter = 10;
constexpr int kLastRow = 25;

// Five rows of the head, then each row holds its number; of NOVAX rows 6 to 9 are the status.
std::vector<SharedRow> Rows() {
    std::vector<SharedRow> rows(kFirstRow - 1, {"头", "0000", "2", "R", 0});
    for (int row = kFirstRow; row <= kLastRow; ++row) {
        const Text address = FittedToWidth(HexOf(static_cast<double>(row)), 4);
        rows.push_back({"参数", ToUtf8(address), "2", "RW", static_cast<double>(row)});
    }
    rows[kLastRow - 1].name = "上限";
    return rows;
}

struct PolledInstrument : testing::PolledInstrument {
    PolledInstrument(const simulator::Model& model, const FaultRates& rates)
        : testing::PolledInstrument(model, Rows(), model.code == 41 ? u" 81 81" : u"01", rates) {
        Form().Record().BlockFinished = [this](const RecordBlock& block) {
            if (block.outcome->verdict.check == CheckWord::Wrong) ++wrongVerdicts;
        };
    }

    std::string Values(int col, int first, int last) {
        std::string values;
        for (int row = first; row <= last; ++row) values += Cell(row, col) + " ";
        return values;
    }

    long wrongVerdicts = 0;
};

void ExpectAgreement(PolledInstrument& polled, long corruptionsSeen) {
    const simulator::InstrumentCounts counts = polled.bus.Total();
    EXPECT_EQ(polled.bus.IgnoredFrames(), 0);
    EXPECT_EQ(counts.refusals, 0);
    EXPECT_EQ(polled.Form().SendCount, counts.requests);
    EXPECT_EQ(polled.Form().NoReplyCount, counts.faults.drops);
    EXPECT_EQ(polled.Form().IncompleteCount, counts.faults.truncations);
    EXPECT_EQ(polled.Form().CheckErrorCount, 0);
    EXPECT_EQ(polled.wrongVerdicts, corruptionsSeen);
    EXPECT_TRUE(polled.dialogs.Shown.empty());
}

constexpr const char* kEveryParameter = "10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 ";

void PollNovax(const FaultRates& rates) {
    PolledInstrument polled(kNovax, rates);
    polled.Form().CommandCode = command::kReadRowByRow;
    polled.Poll(kExchanges);
    ExpectAgreement(polled, 0);
    ExpectFaults(polled.bus.Total().faults, rates);
    if (rates.corrupt > 0) return;
    EXPECT_EQ(polled.Values(column::kValue, kFirstRow, kFirstParameter - 1), "6 7 8 9 ");
    EXPECT_EQ(polled.Values(column::kValue, kFirstParameter, kLastRow), kEveryParameter);
}

void PollMeter(const FaultRates& rates) {
    PolledInstrument polled(kMeter, rates);
    polled.Poll(kExchanges);
    ExpectAgreement(polled, polled.bus.Total().faults.corruptions);
    ExpectFaults(polled.bus.Total().faults, rates);
    const bool isGood = polled.Form().Outcomes.Last()->verdict.IsGoodRead();
    EXPECT_EQ(polled.Values(column::kScaledValue, kFirstRow, kFirstRow + 3),
              isGood ? "0006 00.07 0000.08 00000009 " : " . .  ");
}

void PollBoth(const FaultRates& rates) {
    PollNovax(rates);
    PollMeter(rates);
}

TEST(SpecialAgreement, GoodLineCountsNoFailure) { PollBoth({}); }

TEST(SpecialAgreement, DroppedReplyIsOneMissingReply) { PollBoth({.drop = 0.1}); }

TEST(SpecialAgreement, TruncatedReplyIsOneIncompleteReply) { PollBoth({.truncate = 0.1}); }

TEST(SpecialAgreement, CorruptReplyIsInNoCounterAndOfTheMeterOneWrongVerdict) { PollBoth({.corrupt = 0.1}); }

TEST(SpecialAgreement, SplitAndDelayedRepliesCountAsGood) { PollBoth({.split = 0.3, .delay = 0.3}); }

TEST(SpecialAgreement, AllFaultsTogetherAreToldApart) { PollBoth(kAllTogether); }

TEST(SpecialAgreement, WrittenValueStandsInTheInstrumentAndIsReadBackByTheWalk) {
    PolledInstrument polled(kNovax, {});
    polled.Form().CommandCode = command::kReadRowByRow;
    polled.Click(kLastRow, column::kNewValue);
    polled.TypeAndEnter(u"-200");
    polled.line.RunUntil(5000);
    EXPECT_EQ(polled.bus.Total().writesAccepted, 1);
    EXPECT_EQ(polled.bus.Instruments()[0].ValueOf("上限", 0), -200.0);
    EXPECT_EQ(polled.Cell(kLastRow, column::kValue), "-200");
    ExpectAgreement(polled, 0);
}

}  // namespace
}  // namespace commtest
