#include "protocol_special/hct615d_reply.h"

#include <gtest/gtest.h>

#include "protocol_special/special_protocols.h"
#include "support/conversation_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

HexText Repeated(const HexText& bytes, int times) {
    HexText text;
    for (int i = 0; i < times; ++i) text += bytes;
    return text;
}

// 64 bytes: 47 in front of the values, of which 13 are covered, then check bytes and four more. The values
// add up to 12 + 34 + 56 + 78 + 90 + 12 + 34 + 56 + 78 + 90 + 12 = 35A, their exclusive or is 12.
HexText Reply(const HexText& checks) {
    return Repeated(u" AA", 34) + Repeated(u" 00", 13) + u" 12 34 56 78 90 12 34 56 78 90 12" + checks +
           u" 99 99 99 99";
}
const HexText kGood = Reply(u" 5A 12");
const HexText kBad = Reply(u" 5B 12");

Exchange ExchangeOf(Ending ending, const HexText& reply) {
    return {.reply = reply, .ending = ending, .address = u"7"};
}

// --- The verdict ---

TEST(Hct615dVerdict, GoodReplyIsDataToDecode) {
    const Verdict verdict = JudgeHct615dReply(ExchangeOf(Ending::Complete, kGood));
    EXPECT_EQ(verdict.check, CheckWord::Right);
    EXPECT_EQ(verdict.answer, Answer::Data);
    EXPECT_TRUE(verdict.decodes);
    EXPECT_FALSE(verdict.dropsReply);
}

TEST(Hct615dVerdict, BadReplyIsWrongAndDecodedAsNothing) {
    const Verdict verdict = JudgeHct615dReply(ExchangeOf(Ending::Complete, kBad));
    EXPECT_EQ(verdict.check, CheckWord::Wrong);
    EXPECT_TRUE(verdict.decodes);
    EXPECT_TRUE(verdict.dropsReply);
    EXPECT_FALSE(verdict.IsGoodRead());
}

TEST(Hct615dVerdict, NoReplyAndACutOneAreDecodedAsNothing) {
    for (const Ending ending : {Ending::Silent, Ending::Incomplete}) {
        const Verdict verdict = JudgeHct615dReply(ExchangeOf(ending, kGood));
        EXPECT_EQ(verdict.check, CheckWord::NotJudged);
        EXPECT_EQ(verdict.answer, Answer::Unknown);
        EXPECT_TRUE(verdict.decodes);
        EXPECT_TRUE(verdict.dropsReply);
    }
}

TEST(Hct615dVerdict, OutsideAWaitTheReplyIsDecodedUntested) {
    const Verdict verdict = JudgeHct615dReply(ExchangeOf(Ending::Unjudged, kBad));
    EXPECT_EQ(verdict.check, CheckWord::NotJudged);
    EXPECT_TRUE(verdict.decodes);
    EXPECT_FALSE(verdict.dropsReply);
}

TEST(Hct615dVerdict, NothingIsLoggedAsAnErrorAndNothingStops) {
    for (const Ending ending : {Ending::Complete, Ending::Silent, Ending::Incomplete}) {
        const Verdict verdict = JudgeHct615dReply(ExchangeOf(ending, kBad));
        EXPECT_FALSE(verdict.logsError);
        EXPECT_FALSE(verdict.stopsSession);
        EXPECT_FALSE(verdict.makesReady);
    }
}

// --- The words ---

std::string WordsOn(const Exchange& exchange) {
    return ToUtf8(WordsOnHct615dReply(exchange, JudgeHct615dReply(exchange), kChineseTexts));
}

TEST(Hct615dWords, TellTheCheckWordAndAReadOfDynamicData) {
    EXPECT_EQ(WordsOn(ExchangeOf(Ending::Complete, kGood)), "CRC校验正确       读取 7# 仪表的动态数据");
    EXPECT_EQ(WordsOn(ExchangeOf(Ending::Complete, kBad)), "CRC校验错误       读取 7# 仪表的动态数据");
}

TEST(Hct615dWords, OfAFailureAreThoseOfARead) {
    for (const Ending ending : {Ending::Silent, Ending::Incomplete, Ending::Unjudged}) {
        EXPECT_EQ(WordsOn(ExchangeOf(ending, kGood)), "     读取 7# 仪表的动态数据");
    }
}

// --- The rows ---

struct MeterBench : testing::ConversationBench {
    MeterBench()
        : ConversationBench(testing::RowOf(SpecialProtocols(), 42),
                            {{u"流量", u"0010", u"2", u"R", u"0"}, {u"流速", u"0011", u"2", u"R", u"0"}}) {}

    std::string Reading(int row) { return Cell(row, 7) + "|" + Cell(row, 8) + "|" + Cell(row, 9); }
};

TEST(DecodeHct615dReply, CutsFourValuesAndSetsTheirPoints) {
    MeterBench bench;
    DecodeHct615dReply(bench.Talk(), kGood);
    EXPECT_EQ(bench.Reading(6), "1234||1234");
    EXPECT_EQ(bench.Reading(7), "5678||56.78");
    EXPECT_EQ(bench.Reading(8), "901234||9012.34");
    EXPECT_EQ(bench.Reading(9), "56789012||56789012");
    for (const int row : {5, 10}) EXPECT_EQ(bench.Reading(row), "||") << row;
}

TEST(DecodeHct615dReply, DigitsAreThoseOfTheBytesLettersToo) {
    MeterBench bench;
    DecodeHct615dReply(bench.Talk(), Repeated(u" 00", 47) + u" AB CD EF 01 02 03 04 05 06 07 08 11 22");
    EXPECT_EQ(bench.Reading(6), "ABCD||ABCD");
    EXPECT_EQ(bench.Reading(7), "EF01||EF.01");
}

TEST(DecodeHct615dReply, NothingLeavesThePointsAlone) {
    MeterBench bench;
    for (int row = 6; row <= 9; ++row) {
        for (const int col : {7, 9}) bench.SetCell(row, col, u"1");
    }
    DecodeHct615dReply(bench.Talk(), {});
    EXPECT_EQ(bench.Reading(6), "||");
    EXPECT_EQ(bench.Reading(7), "||.");
    EXPECT_EQ(bench.Reading(8), "||.");
    EXPECT_EQ(bench.Reading(9), "||");
}

TEST(DecodeHct615dReply, ColumnsSixAndEightStayAsTheyAre) {
    MeterBench bench;
    for (const int col : {6, 8}) bench.SetCell(7, col, u"5");
    DecodeHct615dReply(bench.Talk(), kGood);
    for (const int col : {6, 8}) EXPECT_EQ(bench.Cell(7, col), "5") << col;
}

TEST(DecodeHct615dReply, DecimalsOfTheListAreNotLookedAt) {
    MeterBench bench;
    bench.SetCell(6, column::kDecimals, u"3");
    DecodeHct615dReply(bench.Talk(), kGood);
    EXPECT_EQ(bench.Reading(6), "1234||1234");
}

TEST(DecodeHct615dReply, FillsItsFourRowsAndTurnsTheRedrawOn) {
    MeterBench bench;
    bench.Rows().Redraw = false;
    DecodeHct615dReply(bench.Talk(), kGood);
    EXPECT_EQ(bench.Talk().FilledRows.Runs(), (std::vector<RowSpan>{{6, 9}}));
    EXPECT_TRUE(bench.Rows().Redraw);
}

TEST(DecodeHct615dReply, CurrentRowStays) {
    MeterBench bench;
    bench.Talk().CurrentRow = 6;
    DecodeHct615dReply(bench.Talk(), kGood);
    EXPECT_EQ(bench.Talk().CurrentRow, 6);
}

TEST(DecodeHct615dReply, GridWithoutTheRowsIsASubscriptError) {
    MeterBench bench;
    bench.Rows().SetSize(8, column::kCount);
    EXPECT_EQ(ErrorOf([&] { DecodeHct615dReply(bench.Talk(), kGood); }), 9);
    EXPECT_EQ(bench.Reading(7), "5678||56.78");
}

}  // namespace
}  // namespace commtest
