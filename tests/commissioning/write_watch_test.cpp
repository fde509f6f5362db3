#include "commissioning/write_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/form_bench.h"
#include "support/native_instrument.h"
#include "support/watched_write.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;
using testing::NativeBench;
using testing::WatchedWrite;
namespace frames = testing::frames;

const std::string kOtherValueReply = "40 30 31 52 45 36 34 30 30 31 34 0D";  // 6400: 100

// The user's own way to a write, with the reads of row 1 behind it.
struct WatchBench : NativeBench {
    WriteWatch watch{Form()};

    WatchBench() {
        Form().CommandCode = command::kReadThisRow;
        Click(1, column::kSingleRead);
    }
    void Enter(const Text& value) {
        Click(1, column::kNewValue);
        TypeAndEnter(value);
        watch.Begin(1);
    }
    void RunExchanges(std::uint64_t count) {
        const auto end = Form().Outcomes.Total() + count;
        line.RunWhile([&] { return Form().Outcomes.Total() < end; }, line.Time() + 60'000);
        ASSERT_EQ(Form().Outcomes.Total(), end);
    }
    // What is said of row 1 behind so many exchanges more.
    WriteOutcome Behind(std::uint64_t exchanges) {
        RunExchanges(exchanges);
        EXPECT_THAT(watch.Follow(), ElementsAre(1));
        return watch.Of(1)->State();
    }
    std::string ReadBack() const { return ToUtf8(watch.Of(1)->ReadBack()); }
};

TEST(WriteWatch, SaysNothingOfARowThatWasNotWritten) {
    WatchBench bench;
    EXPECT_EQ(bench.watch.Of(1), nullptr);
    EXPECT_THAT(bench.watch.Follow(), IsEmpty());
}

TEST(WriteWatch, FollowsAWriteFromItsEntryToTheReadBack) {
    WatchBench bench;
    bench.WillAnswer({frames::kTaken, frames::kFirstRowReply, frames::kFirstRowReply});
    bench.Enter(u"200");
    EXPECT_THAT(bench.watch.Follow(), ElementsAre(1));
    EXPECT_EQ(bench.watch.Of(1)->State(), WriteOutcome::UnderWay);
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Sent);
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Equal);
    EXPECT_EQ(ToUtf8(bench.watch.Of(1)->Value()), "200");
    bench.RunExchanges(1);
    EXPECT_THAT(bench.watch.Follow(), IsEmpty()) << "nothing new to say";
    EXPECT_EQ(bench.SentFrames(), (std::vector<std::string>{frames::kWriteFirstRow, frames::kReadFirstRow,
                                                            frames::kReadFirstRow}));
}

TEST(WriteWatch, EachLaterReadDecidesAnew) {
    WatchBench bench;
    bench.WillAnswer({frames::kTaken, frames::kFirstRowReply, kOtherValueReply, frames::kFirstRowReply});
    bench.Enter(u"200");
    EXPECT_EQ(bench.Behind(2), WriteOutcome::Equal);
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Different);
    EXPECT_EQ(bench.ReadBack(), "100");
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Equal);
}

TEST(WriteWatch, RefusalIsKept) {
    WatchBench bench;
    bench.WillAnswer({frames::kRefused});
    bench.Enter(u"200");
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Refused);
}

TEST(WriteWatch, SilenceIsNotConfirmedUntilAReadDecides) {
    WatchBench bench;
    bench.WillAnswer({"", kOtherValueReply});
    bench.Enter(u"200");
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Unconfirmed);
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Different);
}

TEST(WriteWatch, StopBeforeTheAnswerLeavesItUnconfirmedUntilAReadDecides) {
    WatchBench bench;
    bench.Enter(u"200");
    bench.line.RunWhile([&] { return bench.SentFrames().empty(); }, 10'000);
    bench.Stop();
    bench.line.RunUntil(bench.line.Time() + 5'000);
    EXPECT_THAT(bench.watch.Follow(), ElementsAre(1));
    EXPECT_EQ(bench.watch.Of(1)->State(), WriteOutcome::Unconfirmed);
    bench.WillAnswer({frames::kFirstRowReply});
    bench.Start();
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Equal);
}

TEST(WriteWatch, FrameThatHasNotLeftYetIsWaitedFor) {
    WatchBench bench;
    bench.Enter(u"200");
    bench.Stop();
    bench.watch.Follow();
    EXPECT_EQ(bench.watch.Of(1)->State(), WriteOutcome::UnderWay);
    bench.WillAnswer({frames::kTaken});
    bench.Start();
    EXPECT_EQ(bench.Behind(1), WriteOutcome::Sent);
}

TEST(WriteWatch, WriteThatAnotherOneHasOvertakenIsNotConfirmed) {
    WatchBench bench;
    bench.Enter(u"200");
    bench.Click(2, column::kNewValue);
    bench.TypeAndEnter(u"1.5");
    bench.watch.Begin(2);
    EXPECT_THAT(bench.watch.Follow(), ElementsAre(1, 2));
    EXPECT_EQ(bench.watch.Of(1)->State(), WriteOutcome::Unconfirmed);
    EXPECT_EQ(bench.watch.Of(2)->State(), WriteOutcome::UnderWay);
}

TEST(WriteWatch, CellThatChangesIsForgotten) {
    WatchBench bench;
    bench.Enter(u"200");
    bench.watch.Follow();
    bench.Form().ParameterGrid().SetCell(1, column::kNewValue, u"");
    EXPECT_THAT(bench.watch.Follow(), ElementsAre(1));
    EXPECT_EQ(bench.watch.Of(1), nullptr);
}

TEST(WriteWatch, AnotherInstrumentHasNothingWritten) {
    WatchBench bench;
    bench.Add(u"仪表乙", testing::kNativeProtocol, u"1101", {{u"给定值", u"0123", u"2", u"RW", u"0"}});
    bench.Enter(u"200");
    bench.Choose(testing::kNativeProtocol, u"仪表乙");
    bench.Form().ParameterGrid().SetCell(1, column::kNewValue, u"200");
    EXPECT_THAT(bench.watch.Follow(), ElementsAre(1));
    EXPECT_EQ(bench.watch.Of(1), nullptr);
}

TEST(WriteWatch, InstrumentThatTakesNoWritesHasNoneToWatch) {
    WatchBench bench;
    bench.Form().ProtocolCode = 13;
    bench.watch.Begin(1);
    EXPECT_EQ(bench.watch.Of(1), nullptr);
}

TEST(WriteWatch, RowOfAnotherInstrumentOnTheLineDecidesNothing) {
    FormBench bench;
    WatchedWrite write(bench.form);
    write.LayOut(3);
    bench.form.AddressText = u"01";
    write.Enter(1, u"200");
    write.Answers(Answer::Written);
    bench.form.AddressText = u"02";
    write.Reads(1, u"7");
    EXPECT_EQ(write.watch.Of(1)->State(), WriteOutcome::Sent);
    bench.form.AddressText = u"01";
    write.Reads(1, u"7");
    EXPECT_EQ(write.watch.Of(1)->State(), WriteOutcome::Different);
}

TEST(WriteWatch, CommandStaysAnsweredAndNotRead) {
    FormBench bench;
    WatchedWrite write(bench.form);
    write.LayOut(3);
    bench.form.ParameterGrid().SetCell(1, column::kAddress, u"0000");
    write.Enter(1, u"0");
    write.Answers(Answer::Written);
    write.Reads(1, u"7");
    EXPECT_EQ(write.watch.Of(1)->State(), WriteOutcome::Sent);
}

TEST(WriteWatch, MoreOutcomesThanAreKeptAreNoMoreThanAreKept) {
    FormBench bench;
    WatchedWrite write(bench.form);
    write.LayOut(3);
    write.Enter(1, u"200");
    write.Answers(Answer::Written);
    for (int exchange = 0; exchange < 1500; ++exchange)
        bench.form.Outcomes.Add(std::make_shared<const Outcome>());
    write.Reads(1, u"200");
    EXPECT_EQ(write.watch.Of(1)->State(), WriteOutcome::Equal);
}

}  // namespace
}  // namespace commtest
