#include "protocol_special/novax_reply.h"

#include <gtest/gtest.h>

#include "protocol_special/novax_talk_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::NovaxTalkBench;

const HexText kReply = u" 1C 2E 2B B8 56 9D 80 6C 12 51";
const HexText kRead = u" 81 81 52 12 00 00 53 12";
const HexText kWrite = u" 81 81 43 12 01 00 45 12";

Exchange ExchangeOf(Ending ending, const HexText& request = kRead) {
    return {.request = request, .reply = kReply, .ending = ending, .address = u"7"};
}

std::string WordsOn(const Exchange& exchange) {
    return ToUtf8(WordsOnNovaxReply(exchange, JudgeNovaxReply(exchange), kChineseTexts));
}

// --- The verdict ---

TEST(NovaxVerdict, EveryReplyPassesWhateverItsBytes) {
    for (const HexText& reply : {kReply, HexText(u" 00 00 00 00 00 00 00 00 00 00"),
                                 HexText(u" 1C 2E 2B B8 56 9D 80 6C 13 51 99")}) {
        Exchange exchange = ExchangeOf(Ending::Complete);
        exchange.reply = reply;
        const Verdict verdict = JudgeNovaxReply(exchange);
        EXPECT_EQ(verdict.check, CheckWord::Right);
        EXPECT_EQ(verdict.answer, Answer::Data);
        EXPECT_TRUE(verdict.decodes);
        EXPECT_FALSE(verdict.dropsReply);
    }
}

TEST(NovaxVerdict, ReplyToAWriteAnswersTheWrite) {
    const Verdict verdict = JudgeNovaxReply(ExchangeOf(Ending::Complete, kWrite));
    EXPECT_EQ(verdict.answer, Answer::Written);
    EXPECT_EQ(verdict.check, CheckWord::Right);
    EXPECT_TRUE(verdict.decodes);
}

TEST(NovaxVerdict, NoReplyAndACutOneAreNeitherJudgedNorDecoded) {
    for (const Ending ending : {Ending::Silent, Ending::Incomplete, Ending::Unjudged}) {
        const Verdict verdict = JudgeNovaxReply(ExchangeOf(ending));
        EXPECT_EQ(verdict.check, CheckWord::NotJudged);
        EXPECT_EQ(verdict.answer, Answer::Unknown);
        EXPECT_FALSE(verdict.decodes);
    }
}

TEST(NovaxVerdict, NothingIsLoggedAsAnErrorAndNothingStops) {
    for (const Ending ending : {Ending::Complete, Ending::Silent, Ending::Incomplete}) {
        const Verdict verdict = JudgeNovaxReply(ExchangeOf(ending));
        EXPECT_FALSE(verdict.logsError);
        EXPECT_FALSE(verdict.stopsSession);
        EXPECT_FALSE(verdict.makesReady);
    }
}

// --- The words ---

TEST(NovaxWords, TellTheCheckWordAndAReadOfStaticData) {
    EXPECT_EQ(WordsOn(ExchangeOf(Ending::Complete)), "CRC校验正确       读取 7# 仪表的静态数据");
}

TEST(NovaxWords, OfAWriteAndAFailureAreThoseOfARead) {
    EXPECT_EQ(WordsOn(ExchangeOf(Ending::Complete, kWrite)), "CRC校验正确       读取 7# 仪表的静态数据");
    for (const Ending ending : {Ending::Silent, Ending::Incomplete, Ending::Unjudged}) {
        EXPECT_EQ(WordsOn(ExchangeOf(ending)), "     读取 7# 仪表的静态数据");
    }
}

TEST(NovaxWords, OfAWrongCheckWordWouldBeItsOwn) {
    Verdict verdict;
    verdict.check = CheckWord::Wrong;
    EXPECT_EQ(ToUtf8(WordsOnNovaxReply(ExchangeOf(Ending::Complete), verdict, kChineseTexts)),
              "CRC校验错误       读取 7# 仪表的静态数据");
}

// --- The rows ---

// 2E1C is 11804, B82B is -18389, 56 is 86, 9D is 157, 6C80 is 27776.
TEST(TestCRCWordNOVAX, SharesTheBytesOutOverTheStatusRowsAndTheCurrentOne) {
    NovaxTalkBench bench;
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Reading(6), "2E1C|11804|1180.4");
    EXPECT_EQ(bench.Reading(7), "B82B|-18389|-18389");
    EXPECT_EQ(bench.Reading(8), "56|86|86");
    EXPECT_EQ(bench.Reading(9), "9D|157|157");
    EXPECT_EQ(bench.Reading(10), "6C80|27776|27776");
    for (const int row : {5, 11}) EXPECT_EQ(bench.Reading(row), "||") << row;
}

TEST(TestCRCWordNOVAX, ColumnSixStaysAsItIs) {
    NovaxTalkBench bench;
    for (const int row : {6, 10}) bench.SetCell(row, column::kSingleRead, u"5");
    TestCRCWordNOVAX(bench.Talk(), kReply);
    for (const int row : {6, 10}) EXPECT_EQ(bench.Cell(row, column::kSingleRead), "5") << row;
}

TEST(TestCRCWordNOVAX, CurrentRowMovesOnByOne) {
    NovaxTalkBench bench;
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Talk().CurrentRow, 11);
    bench.Talk().CurrentRow = 14;
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Talk().CurrentRow, 15);
    EXPECT_EQ(bench.Reading(14), "6C80|27776|277.76");
}

TEST(TestCRCWordNOVAX, RowOfAttributeSGetsItsDigitsOnly) {
    NovaxTalkBench bench;
    bench.Talk().CurrentRow = 12;
    bench.SetCell(12, column::kValue, u"old");
    bench.SetCell(12, column::kScaledValue, u"older");
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Reading(12), "6C80|old|older");
    EXPECT_EQ(bench.Talk().CurrentRow, 13);
}

TEST(TestCRCWordNOVAX, OnlyExactlySIsThatAttribute) {
    NovaxTalkBench bench;
    bench.SetCell(10, column::kAttribute, u"SW");
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Reading(10), "6C80|27776|27776");
}

TEST(TestCRCWordNOVAX, StatusRowOfAttributeSHasItsValueAllTheSame) {
    NovaxTalkBench bench;
    bench.SetCell(6, column::kAttribute, u"S");
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Reading(6), "2E1C|11804|1180.4");
}

TEST(TestCRCWordNOVAX, StatusBytesTakeNoDecimals) {
    NovaxTalkBench bench;
    bench.SetCell(9, column::kDecimals, u"1");
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Reading(8), "56|86|86");
    EXPECT_EQ(bench.Reading(9), "9D|157|157");
}

TEST(TestCRCWordNOVAX, DecimalsMayStandInAnotherRow) {
    NovaxTalkBench bench;
    bench.SetCell(9, column::kName, u"小数点");
    bench.SetCell(10, column::kDecimals, u"0004");
    TestCRCWordNOVAX(bench.Talk(), u" 00 00 00 00 00 03 D2 04 00 00");  // 04D2 is 1234
    EXPECT_EQ(bench.Reading(10), "04D2|1234|1.234");
}

TEST(TestCRCWordNOVAX, ZeroInColumnFiveIsNoAddressOfDecimals) {
    NovaxTalkBench bench;
    bench.SetCell(1, column::kName, u"小数点");  // at 0000
    bench.SetCell(1, column::kValue, u"2");
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Reading(10), "6C80|27776|27776");
}

TEST(TestCRCWordNOVAX, BytesBehindTheEighthAreNotRead) {
    NovaxTalkBench bench;
    TestCRCWordNOVAX(bench.Talk(), u" 1C 2E 2B B8 56 9D 80 6C 00 00 FF FF FF");
    EXPECT_EQ(bench.Reading(10), "6C80|27776|27776");
}

TEST(TestCRCWordNOVAX, RowsFilledAreTheStatusRowsAndTheOneThatWasWalked) {
    NovaxTalkBench bench;
    bench.Talk().CurrentRow = 13;
    TestCRCWordNOVAX(bench.Talk(), kReply);
    EXPECT_EQ(bench.Talk().FilledRows.Runs(), (std::vector<RowSpan>{{6, 9}, {13, 13}}));
    EXPECT_FALSE(bench.Talk().FilledRows.Holds(11));
}

TEST(TestCRCWordNOVAX, CurrentRowBeyondTheGridIsASubscriptErrorBehindTheStatusRows) {
    NovaxTalkBench bench;
    bench.Talk().CurrentRow = 15;
    EXPECT_EQ(ErrorOf([&] { TestCRCWordNOVAX(bench.Talk(), kReply); }), 9);
    EXPECT_EQ(bench.Reading(9), "9D|157|157");
    EXPECT_EQ(bench.Talk().CurrentRow, 15);
}

}  // namespace
}  // namespace commtest
