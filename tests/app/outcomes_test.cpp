#include <gtest/gtest.h>

#include "app/rtu_bench.h"
#include "session/answer_words.h"
#include "session/reply_routing.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::Arrival;
using testing::BytesOfHex;
using testing::NativeBench;
using testing::RtuBench;
namespace frames = testing::frames;
using Runs = std::vector<RowSpan>;

class Outcomes : public ::testing::Test {
  protected:
    // The first frame leaves at 300 milliseconds.
    void PollUntil(std::int64_t time) {
        bench.Start();
        bench.line.RunUntil(time);
    }
    // Each frame is answered in pieces, each so many milliseconds behind it.
    void AnswersInPieces(const std::vector<std::pair<std::int64_t, std::string>>& pieces) {
        bench.line.Answer = [pieces](const std::string&) {
            std::vector<Arrival> arrivals;
            for (const auto& [delay, hex] : pieces) arrivals.emplace_back(delay, BytesOfHex(hex));
            return arrivals;
        };
    }
    const Outcome& Last(std::size_t back = 0) { return *form.Outcomes.Last(back); }

    NativeBench bench;
    MainForm& form = bench.Form();
};

// --- The exchange ---

TEST_F(Outcomes, ExchangeHoldsRequestReplyAndAddress) {
    bench.WillAnswer({frames::kDynamicReply});
    PollUntil(301);
    ASSERT_EQ(form.Outcomes.Total(), 1U);
    const Exchange& exchange = Last().exchange;
    EXPECT_EQ(exchange.number, 1);
    EXPECT_EQ(ToUtf8(exchange.request), " 40 30 31 52 44 31 37 0D");
    EXPECT_EQ(ToUtf8(exchange.reply), " 40 30 31 52 44 43 38 30 30 36 34 30 30 36 45 0D");
    EXPECT_EQ(exchange.ending, Ending::Complete);
    EXPECT_EQ(ToUtf8(exchange.address), "1");
    EXPECT_EQ(ToUtf8(exchange.addressText), " 30 31");
    EXPECT_TRUE(Last().verdict.IsGoodRead());
}

TEST_F(Outcomes, TimesAreThoseOfTheFrameAndOfItsFirstAndLastBytes) {
    AnswersInPieces(
        {{5, "40 30 31 52 44"}, {7, "43 38 30 30"}, {12, "36 34 30 30 36 45 0D"}});  // a dynamic reply
    PollUntil(312);
    const Exchange& exchange = Last().exchange;
    EXPECT_EQ(exchange.requestTime, 300000);
    EXPECT_EQ(exchange.firstByteTime, 305000);
    EXPECT_EQ(exchange.lastByteTime, 312000);
}

TEST_F(Outcomes, SilentInstrumentHasNoTimesOfBytes) {
    PollUntil(1500);
    ASSERT_EQ(form.Outcomes.Total(), 1U);
    const Exchange& exchange = Last().exchange;
    EXPECT_EQ(exchange.ending, Ending::Silent);
    EXPECT_EQ(exchange.number, 1);
    EXPECT_EQ(exchange.requestTime, 300000);
    EXPECT_EQ(exchange.firstByteTime, std::nullopt);
    EXPECT_EQ(exchange.lastByteTime, std::nullopt);
    EXPECT_EQ(ToUtf8(exchange.reply), "");
}

TEST_F(Outcomes, IncompleteReplyHasWhatCameAndItsTimes) {
    AnswersInPieces({{5, "40 30"}});
    PollUntil(1805);
    ASSERT_EQ(form.Outcomes.Total(), 1U);
    const Exchange& exchange = Last().exchange;
    EXPECT_EQ(exchange.ending, Ending::Incomplete);
    EXPECT_EQ(ToUtf8(exchange.reply), " 40 30");
    EXPECT_EQ(exchange.firstByteTime, 305000);
    EXPECT_EQ(exchange.lastByteTime, 305000);
}

TEST_F(Outcomes, PartOfAnAnswerAndItsContinuationAreTwoExchanges) {
    bench.WillAnswer({frames::kDynamicPart, frames::kDynamicLastPart});
    PollUntil(302);
    ASSERT_EQ(form.Outcomes.Total(), 2U);
    EXPECT_EQ(Last(1).exchange.ending, Ending::Continued);
    EXPECT_EQ(Last(1).exchange.number, 1);
    EXPECT_EQ(ToUtf8(Last(1).exchange.request), " 40 30 31 52 44 31 37 0D");
    EXPECT_EQ(Last(1).exchange.lastByteTime, 301000);
    EXPECT_EQ(Last().exchange.ending, Ending::Complete);
    EXPECT_EQ(Last().exchange.number, 2);
    EXPECT_EQ(ToUtf8(Last().exchange.request), " 0A");
    EXPECT_EQ(Last().exchange.requestTime, 301000);
    EXPECT_EQ(Last().exchange.firstByteTime, 302000);
}

TEST_F(Outcomes, BytesThatComeBehindTheReplyBelongToNoRequest) {
    bench.WillAnswer({frames::kDynamicReply});
    bench.ArrivesAt(350, frames::kStaticReply);
    PollUntil(350);
    ASSERT_EQ(form.Outcomes.Total(), 2U);
    EXPECT_EQ(Last().exchange.number, 0);
    EXPECT_EQ(ToUtf8(Last().exchange.request), "");
    EXPECT_EQ(Last().exchange.firstByteTime, 350000);
}

// --- The rows ---

TEST_F(Outcomes, RowsAreThoseThatTheReplyHasFilled) {
    bench.WillAnswer({frames::kDynamicReply, frames::kStaticReply});
    PollUntil(402);
    ASSERT_EQ(form.Outcomes.Total(), 2U);
    EXPECT_EQ(Last(1).rows.Runs(), Runs({{6, 7}}));
    EXPECT_EQ(Last().rows.Runs(), Runs({{1, 2}}));
}

TEST_F(Outcomes, ReplyThatIsNotDecodedFillsNoRow) {
    bench.WillAnswer({frames::kDynamicReply, "40 30 31 52 44 43 38 30 30 36 34 30 30 36 46 0D"});
    PollUntil(402);
    ASSERT_EQ(form.Outcomes.Total(), 2U);
    EXPECT_EQ(Last().verdict.check, CheckWord::Wrong);
    EXPECT_EQ(Last().rows.Runs(), Runs());
}

TEST_F(Outcomes, WalkThatEndsInAnErrorHasFilledTheRowsBeforeIt) {
    form.ParameterGrid().SetCell(7, 3, u"no number");
    bench.WillAnswer({frames::kDynamicReply});
    PollUntil(301);
    EXPECT_EQ(Last().rows.Runs(), Runs({{6, 6}}));
}

TEST(OutcomesOfRtu, RowsOfAReadOfSeveralRegisters) {
    RtuBench bench(31);
    bench.Form().CommandCode = 60;
    bench.ReceiveHex(1, u" 01 03 08 00 64 00 C8 01 2C 01 90 90 08");
    EXPECT_EQ(bench.Form().Outcomes.Last()->rows.Runs(), Runs({{6, 8}}));
}

// --- The record's block ---

TEST_F(Outcomes, BlockOfTheRecordTellsWhereItsPartsBegin) {
    bench.WillAnswer({frames::kDynamicReply});
    PollUntil(301);
    ASSERT_EQ(form.Record().Blocks().size(), 1U);
    const RecordBlock& block = form.Record().Blocks().front();
    EXPECT_EQ(ToUtf8(block.text),
              "第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n"
              "@01RDC80064006E\\0D\r\n"
              "CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n");
    EXPECT_EQ(block.parts.frameAt, 17U);
    EXPECT_EQ(block.parts.frameEnd, 27U);
    EXPECT_EQ(block.parts.replyAt, 36U);
    EXPECT_EQ(block.parts.wordsAt, 56U);
}

TEST_F(Outcomes, BlockOfASilentInstrumentHasAnEmptyReply) {
    PollUntil(1500);
    const RecordBlock& block = form.Record().Blocks().front();
    EXPECT_EQ(block.parts.replyAt, 36U);
    EXPECT_EQ(block.parts.wordsAt, 38U);
    EXPECT_EQ(ToUtf8(block.text.substr(38)), "仪表无应答  注意：仪表无应答或返回软件无法识别的数据\r\n\r\n");
}

TEST_F(Outcomes, BlockOfTheRecordCarriesItsOutcomeWhoseRowsFollowBehindIt) {
    std::vector<Runs> rows;
    form.Record().BlockFinished = [&](const RecordBlock& block) {
        rows.push_back(block.outcome->rows.Runs());
    };
    bench.WillAnswer({frames::kDynamicReply});
    PollUntil(301);
    EXPECT_EQ(rows, std::vector<Runs>{{}});
    EXPECT_EQ(form.Record().Blocks().front().outcome, form.Outcomes.Last());
    EXPECT_EQ(form.Record().Blocks().front().outcome->rows.Runs(), Runs({{6, 7}}));
}

TEST_F(Outcomes, BlockOfASearchHitBelongsToNoExchange) {
    form.CommandCode = 1031;
    form.ReplyText = u" 40 30 31 52 44 31 37 0D";
    form.CycleStep = 1;
    RouteReply(form);
    ASSERT_EQ(form.Record().Blocks().size(), 2U);
    EXPECT_EQ(form.Record().Blocks().front().outcome, nullptr);
    EXPECT_EQ(form.Record().Blocks().front().parts.wordsAt, 0U);
    EXPECT_NE(form.Record().Blocks().back().outcome, nullptr);
}

// --- The ring of a session ---

TEST_F(Outcomes, SessionKeepsThemInTheirOrder) {
    bench.AnswersEachFrame(frames::kTaken);
    PollUntil(650);
    ASSERT_EQ(form.Outcomes.Total(), 4U);
    EXPECT_EQ(Last().exchange.number, 4);
    EXPECT_EQ(Last(3).exchange.number, 1);
    EXPECT_EQ(Last(3).exchange.requestTime, 300000);
    EXPECT_EQ(Last(2).exchange.requestTime, 401000);
    EXPECT_EQ(form.Outcomes.Last(4), nullptr);
}

// --- The stop by an exception ---

TEST(StopByException, KeepsTheOutcomeThatStoppedTheSession) {
    RtuBench bench(31);
    bench.Form().CommandCode = 50;
    bench.WillAnswer({"01 03 02 00 64 B9 AF", "01 83 02 C0 F1"});
    bench.Press(4);
    bench.line.RunUntil(600);
    EXPECT_FALSE(bench.Form().IsRunning());
    const Stop& stop = bench.Form().LastStop();
    EXPECT_EQ(stop.cause, StopCause::Exception);
    EXPECT_EQ(stop.exchange, 2);
    ASSERT_NE(stop.outcome, nullptr);
    EXPECT_EQ(stop.outcome, bench.Form().Outcomes.Last());
    EXPECT_EQ(stop.outcome->exchange.number, 2);
    EXPECT_EQ(stop.outcome->verdict.exception, (InstrumentException{0x83, 2}));
}

TEST(AnswerWords, AreOneLineWithoutThoseOnTheCheckWord) {
    RtuBench bench(31);
    bench.Form().CommandCode = 50;
    bench.WillAnswer({"01 83 02 C0 F1"});
    bench.Press(4);
    bench.line.RunUntil(400);
    EXPECT_EQ(ToUtf8(AnswerWords(bench.Form(), *bench.Form().Outcomes.Last())),
              "注意：读写指令中含有非法参数地址/长度超出范围 指令错误！");
}

}  // namespace
}  // namespace commtest
