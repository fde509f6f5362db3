#include "session/reply_routing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/records.h"
#include "support/error_of.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FormBench;
using ::testing::IsEmpty;
using testing::NativeBench;
namespace frames = testing::frames;

const std::string kFailures = "数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 ";

std::string Caption(const MainForm& form, std::size_t index) {
    return ToUtf8(form.ConCommMessage[index].Value());
}

// --- Routing ---

struct InstrumentCode {
    Text code;
    int protocol;
};

TEST(RouteReply, ReadsTheProtocolAnewFromTheInstrumentCode) {
    for (const InstrumentCode& row :
         {InstrumentCode{u"1101", 11}, InstrumentCode{u"31", 31}, InstrumentCode{u"5", 5},
          InstrumentCode{u"0742", 7}, InstrumentCode{u"", 0}, InstrumentCode{u"仪表", 0}}) {
        FormBench bench;
        bench.form.ProtocolCode = 11;
        bench.form.MeterCodeText = row.code;
        RouteReply(bench.form);
        EXPECT_EQ(bench.form.ProtocolCode, row.protocol) << ToUtf8(row.code);
    }
}

TEST(RouteReply, HandsTheReplyToTheProtocolOfTheInstrumentNotOfTheCodeBefore) {
    Protocol instrument;
    instrument.code = 31;
    instrument.judge = [](const Exchange&) { return Verdict(); };
    instrument.words = [](const Exchange& exchange, const Verdict&, const Texts&) {
        return u"judged: " + exchange.reply;
    };
    Protocol before = instrument;
    before.code = 11;
    before.words = [](const Exchange&, const Verdict&, const Texts&) { return Text(u"wrong protocol"); };
    ProtocolTable table;
    table.rows = {before, instrument};
    FormBench bench(table);
    bench.form.ProtocolCode = 11;
    bench.form.MeterCodeText = u"3101";
    bench.form.ReplyText = u" 41 42";
    RouteReply(bench.form);
    EXPECT_EQ(ToUtf8(bench.form.LogLine), "AB\r\njudged:  41 42");
}

TEST(RouteReply, WithoutAJudgeKeepsTheReplyAndRefreshesTheStatistics) {
    for (const Text& code : {Text(u"2300"), Text(u"0"), Text(u"")}) {
        FormBench bench;
        bench.form.MeterCodeText = code;
        bench.form.ReplyText = u" 01 03";
        bench.form.SendCount = 4;
        RouteReply(bench.form);
        EXPECT_EQ(ToUtf8(bench.form.ReplyText), " 01 03");
        EXPECT_EQ(Caption(bench.form, 1), "总计通讯: 4 次");
        EXPECT_THAT(bench.form.ConCommString[1].Blocks(), IsEmpty());
    }
}

TEST(RouteReply, InstrumentWithoutParametersEndsTheUseOfItsProtocolWithTheFirstRouting) {
    NativeBench bench;
    bench.Form().ConMeterName[0].Set(u"没有参数的仪表");
    bench.Form().ConMeterName[0].Click();
    EXPECT_EQ(bench.Form().ProtocolCode, 11);
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kReadDynamic));
    bench.line.RunUntil(1500);
    EXPECT_EQ(bench.Form().ProtocolCode, 0);
    EXPECT_EQ(bench.Form().NoReplyCount, 0);
}

// --- Search ---

struct SearchHit {
    std::int32_t commandCode;
    int found;
};

TEST(RouteReply, ReplyIsASearchHitWithCommandCodes1001To9999) {
    for (const SearchHit& row :
         {SearchHit{1000, 0}, SearchHit{1001, 1}, SearchHit{9999, 1}, SearchHit{10000, 0}}) {
        FormBench bench;
        bench.form.CommandCode = row.commandCode;
        RouteReply(bench.form);
        EXPECT_EQ(bench.form.SearchFoundCount, row.found) << row.commandCode;
        EXPECT_EQ(bench.form.ConCommString[1].Blocks().size(), static_cast<std::size_t>(row.found));
    }
}

TEST(RouteReply, SearchHitIsRecordedOnTopBehindTheReply) {
    NativeBench bench;
    bench.Form().CommandCode = 1031;
    bench.Form().CycleStep = 1;
    bench.Form().ConMeterAddr.Set(u"17");
    bench.line.SetSettings(u"19200,N,8,1");
    bench.Form().ReplyText = u" 40 31 31 52 44 31 36 0D";
    bench.Form().LogLine = u"line ";
    RouteReply(bench.Form());
    EXPECT_EQ(bench.Record(),
              "******************************************************************************\r\n"
              "仪表搜索,接收到数据,此时仪表地址: 17      波特率: 19200\r\n"
              "line @11RD16\\0D\r\nCRC校验正确       读取 17# 仪表的动态数据\r\n\r\n");
}

// --- Statistics ---

TEST(ShowStatistics, WithoutAFrameThereIsNoRate) {
    FormBench bench;
    ShowStatistics(bench.form);
    EXPECT_EQ(Caption(bench.form, 0), kFailures);
    EXPECT_EQ(Caption(bench.form, 1), "总计通讯: 0 次");
    EXPECT_EQ(Caption(bench.form, 2), "总计通讯: 0 次         " + kFailures);
}

TEST(ShowStatistics, ThreeMissingRepliesInTwelveFramesAreARateOf25) {
    FormBench bench;
    bench.form.SendCount = 12;
    bench.form.NoReplyCount = 3;
    ShowStatistics(bench.form);
    EXPECT_EQ(Caption(bench.form, 0), "数据不完整 0 次;校验出错 0 次;无应答 3 次; 错误率 25.00 %");
    EXPECT_EQ(Caption(bench.form, 1), "总计通讯: 12 次");
    EXPECT_EQ(Caption(bench.form, 2),
              "总计通讯: 12 次         数据不完整 0 次;校验出错 0 次;无应答 3 次; 错误率 25.00 %");
}

struct Counts {
    std::int32_t sent;
    std::int32_t incomplete;
    std::int32_t checkErrors;
    std::int32_t missing;
    std::string line;
};

TEST(ShowStatistics, RateIsTheSumOfTheFailuresWithTwoDecimals) {
    const Counts rows[] = {
        {1, 0, 0, 0, "数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %"},
        {6, 1, 2, 3, "数据不完整 1 次;校验出错 2 次;无应答 3 次; 错误率 100.00 %"},
        {3, 0, 1, 0, "数据不完整 0 次;校验出错 1 次;无应答 0 次; 错误率 33.33 %"},
        {3, 2, 0, 0, "数据不完整 2 次;校验出错 0 次;无应答 0 次; 错误率 66.67 %"},
        {200, 0, 0, 1, "数据不完整 0 次;校验出错 0 次;无应答 1 次; 错误率 0.50 %"},
        {1, 0, 0, 10, "数据不完整 0 次;校验出错 0 次;无应答 10 次; 错误率 1,000.00 %"},
        {1, 12345, 0, 0, "数据不完整 12345 次;校验出错 0 次;无应答 0 次; 错误率 1,234,500.00 %"}};
    for (const Counts& row : rows) {
        FormBench bench;
        bench.form.SendCount = row.sent;
        bench.form.IncompleteCount = row.incomplete;
        bench.form.CheckErrorCount = row.checkErrors;
        bench.form.NoReplyCount = row.missing;
        ShowStatistics(bench.form);
        EXPECT_EQ(Caption(bench.form, 0), row.line);
    }
}

// The caption with its numbers in brackets, a failure with "!" before it.
std::string Marked(const MainForm& form, std::size_t index) {
    Text caption = form.ConCommMessage[index].Value();
    const StatisticsNumbers& numbers = form.ShownStatistics[index];
    for (const auto* number = numbers.end(); number-- != numbers.begin();) {
        caption.insert(number->position + number->length, u"]");
        caption.insert(number->position, number->isFailure ? u"[!" : u"[");
    }
    return ToUtf8(caption);
}

TEST(ShowStatistics, TellsNumbersFromWordsAndFailuresFromNumbers) {
    FormBench bench;
    bench.form.SendCount = 1286;
    bench.form.CheckErrorCount = 1;
    bench.form.NoReplyCount = 30;
    ShowStatistics(bench.form);
    const std::string failures = "数据不完整 [0] 次;校验出错 [!1] 次;无应答 [!30] 次; 错误率 [!2.41 %]";
    EXPECT_EQ(Marked(bench.form, 1), "总计通讯: [1286] 次");
    EXPECT_EQ(Marked(bench.form, 0), failures);
    EXPECT_EQ(Marked(bench.form, 2), "总计通讯: [1286] 次         " + failures);
}

TEST(ShowStatistics, RateIsAFailureWhileACounterIsEvenIfItRoundsToZero) {
    FormBench bench;
    bench.form.SendCount = 100000;
    ShowStatistics(bench.form);
    EXPECT_EQ(Marked(bench.form, 0), "数据不完整 [0] 次;校验出错 [0] 次;无应答 [0] 次; 错误率 [0.00 %]");
    bench.form.IncompleteCount = 1;
    ShowStatistics(bench.form);
    EXPECT_EQ(Marked(bench.form, 0), "数据不完整 [!1] 次;校验出错 [0] 次;无应答 [0] 次; 错误率 [!0.00 %]");
}

TEST(ShowStatistics, LineWithoutARateEndsInItsWords) {
    FormBench bench;
    ShowStatistics(bench.form);
    EXPECT_EQ(Marked(bench.form, 0), "数据不完整 [0] 次;校验出错 [0] 次;无应答 [0] 次; 错误率 ");
}

TEST(ShowStatistics, Above21474836FailuresTheRateOverflows) {
    FormBench bench;
    bench.form.SendCount = 2;
    bench.form.IncompleteCount = 21474835;
    bench.form.NoReplyCount = 1;
    EXPECT_EQ(ErrorOf([&] { ShowStatistics(bench.form); }), 0);
    bench.form.CheckErrorCount = 1;
    EXPECT_EQ(ErrorOf([&] { ShowStatistics(bench.form); }), 6);
}

TEST(ShowStatistics, NumbersStayWithTheCaptionThatAnOverflowKeeps) {
    FormBench bench;
    bench.form.SendCount = 2;
    bench.form.NoReplyCount = 1;
    ShowStatistics(bench.form);
    bench.form.SendCount = 3;
    bench.form.NoReplyCount = 21474837;
    EXPECT_EQ(ErrorOf([&] { ShowStatistics(bench.form); }), 6);
    EXPECT_EQ(Caption(bench.form, 1), "总计通讯: 3 次");
    EXPECT_EQ(Marked(bench.form, 1), "总计通讯: [3] 次");
    EXPECT_EQ(Caption(bench.form, 0), "数据不完整 0 次;校验出错 0 次;无应答 1 次; 错误率 50.00 %");
    EXPECT_EQ(Marked(bench.form, 0), "数据不完整 [0] 次;校验出错 [0] 次;无应答 [!1] 次; 错误率 [!50.00 %]");
}

TEST(ShowStatistics, LabelsFollowClearedCountersAtTheNextRouting) {
    FormBench bench;
    bench.form.SendCount = 12;
    bench.form.NoReplyCount = 3;
    ShowStatistics(bench.form);
    ConCommMessage_DblClick(bench.form);
    EXPECT_EQ(Caption(bench.form, 1), "总计通讯: 12 次");
    EXPECT_EQ(Marked(bench.form, 1), "总计通讯: [12] 次");
    RouteReply(bench.form);
    EXPECT_EQ(Caption(bench.form, 1), "总计通讯: 0 次");
    EXPECT_EQ(Marked(bench.form, 1), "总计通讯: [0] 次");
    EXPECT_EQ(Caption(bench.form, 0), kFailures);
}

}  // namespace
}  // namespace commtest
