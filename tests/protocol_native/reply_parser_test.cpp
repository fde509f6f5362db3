#include "protocol_native/reply_parser.h"

#include <gtest/gtest.h>

#include <limits>

#include "protocol_native/instrument_bench.h"
#include "session/grid_rows.h"
#include "session/toolbar_commands.h"

namespace commtest {
namespace {

using testing::FrameOf;
using testing::InstrumentBench;

constexpr const char* kGoodReply = "@01RDC800646E\r";  // 200 for row 6, half of row 7
constexpr int kDynamicRow = 6;

struct ParserBench : InstrumentBench {
    explicit ParserBench(int code = 11)
        : InstrumentBench(code, {{u"测量值", u"0010", u"2", u"D", u"0"},
                                 {u"流量", u"0012", u"2", u"D", u"0"},
                                 {u"上限", u"0020", u"2", u"RW", u"0"},
                                 {u"下限", u"0022", u"2", u"RW", u"0"}}) {
        Form().LogLine = u"<";
    }
    std::string Line() { return ToUtf8(Form().LogLine); }
    // What has been logged as an error behind the time stamp.
    std::string ErrorLine() const { return ErrorRecords().empty() ? "" : ErrorRecords().substr(19); }
    void LogErrors() {
        Form().ConAutoSave[1].Set(true);
        files.OpenErrorFile();
    }
};

std::string LoggedAs(const std::string& line) { return line + "        串口设置: 9600,N,8,1\r\n\r\n"; }

// --- The record ---

TEST(ParseTqReply, GivesTheCycleTheUsersInterval) {
    ParserBench bench;
    bench.Form().ConDelayTime.Set(u"250");
    bench.Parse(1, kGoodReply);
    EXPECT_EQ(bench.Form().Timer1[1].Interval(), 250);
}

TEST(ParseTqReply, IntervalThatIsNoNumberIsPassedOver) {
    ParserBench bench;
    bench.Form().ConDelayTime.Set(u"快");
    bench.Parse(1, kGoodReply);
    EXPECT_EQ(bench.Form().Timer1[1].Interval(), 300);
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "200");
}

TEST(ParseTqReply, RecordShowsTheReplyInTheChosenMode) {
    ParserBench bench;
    bench.Parse(1, kGoodReply);
    EXPECT_EQ(bench.Line(), "<@01RDC800646E\\0D\r\nCRC校验正确       读取 1# 仪表的动态数据");
    bench.Form().LogLine = u"<";
    bench.Form().ShowMode.Show(1);
    bench.Parse(1, kGoodReply);
    EXPECT_EQ(bench.Line(),
              "<40 30 31 52 44 43 38 30 30 36 34 36 45 0D\r\nCRC校验正确       读取 1# 仪表的动态数据");
}

TEST(ParseTqReply, DisplayModeDoesNotTouchTheGrid) {
    for (const int mode : {0, 1}) {
        ParserBench bench;
        bench.Form().ShowMode.Show(mode);
        bench.Parse(1, kGoodReply);
        EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
        EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "200");
    }
}

TEST(ParseTqReply, ShownReplyIsTrimmed) {
    ParserBench bench;
    bench.Parse(1, "  @01RD\r  ");
    EXPECT_EQ(bench.Line().substr(0, 11), "<@01RD\\0D\r\n");
}

TEST(ParseTqReply, NewestEntryStandsOnTop) {
    ParserBench bench;
    bench.Parse(1, "@01##01\r");
    bench.Form().LogLine = u">";
    bench.Parse(1, "@01##01\r");
    EXPECT_EQ(bench.Record(),
              ">@01##01\\0D\r\nCRC校验正确       修改 1# 仪表的参数\r\n\r\n"
              "<@01##01\\0D\r\nCRC校验正确       修改 1# 仪表的参数\r\n\r\n");
}

// --- The verdict ---

TEST(ParseTqReply, FrameEndIsJudgedByTheCheckWord) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 4, 7}) {
        ParserBench bench;
        bench.Parse(step, kGoodReply);
        EXPECT_EQ(bench.Record(), "<@01RDC800646E\\0D\r\nCRC校验正确       读取 1# 仪表的动态数据\r\n\r\n")
            << step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 0);
        bench.Form().LogLine = u"<";
        bench.Parse(step, "@01RDC800646F\r");
        EXPECT_EQ(bench.Line(), "<@01RDC800646F\\0D\r\nCRC校验错误       读取 1# 仪表的动态数据") << step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << step;
    }
}

TEST(ParseTqReply, EachCodeHasItsCheckWord) {
    struct Row {
        int code;
        const char* good;
        const char* bad;
    };
    const Row rows[] = {{11, "@01RDC800646E\r", "@01RDC800643C\r"},
                        {12, "@01RDC800643C\r", "@01RDC800646E\r"},
                        {13, "@01RDC8006405E\r", "@01RDC8006406C\r"}};
    for (const Row& row : rows) {
        ParserBench bench(row.code);
        bench.Parse(1, row.bad);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << row.code;
        bench.Parse(1, row.good);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << row.code;
    }
}

TEST(ParseTqReply, FillBehindTheCheckWordFailsUnderEveryCode) {
    for (const int code : {11, 13}) {
        ParserBench bench(code);
        bench.Parse(1, "@01RDC800646E00\r");
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << code;
    }
}

TEST(ParseTqReply, WrongCheckWordLeavesTheGridAlone) {
    ParserBench bench;
    bench.Form().CurrentRow = 9;
    bench.Parse(1, "@01RDC800646F\r");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "");
    EXPECT_EQ(bench.Form().CurrentRow, 9);
    EXPECT_EQ(ToUtf8(bench.Form().DynamicSample), "");
}

TEST(ParseTqReply, SumThatLeaves16BitsCountsAsAWrongCheckWord) {
    ParserBench bench(12);
    bench.Parse(1, "@01RD" + std::string(140, '\xFF') + "00\r");
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(ParseTqReply, CycleStepTellsMissingFromIncomplete) {
    struct Row {
        std::int16_t step;
        int noReply;
        int incomplete;
    };
    for (const Row& row : {Row{2, 1, 0}, Row{3, 0, 1}, Row{0, 0, 0}, Row{5, 0, 0}, Row{6, 0, 0}}) {
        ParserBench bench;
        bench.Parse(row.step, kGoodReply);
        EXPECT_EQ(bench.Form().NoReplyCount, row.noReply) << row.step;
        EXPECT_EQ(bench.Form().IncompleteCount, row.incomplete) << row.step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 0) << row.step;
        EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "") << row.step;
    }
}

TEST(ParseTqReply, CounterAtItsEndStaysAndTheRestGoesOn) {
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    ParserBench bench;
    bench.Form().NoReplyCount = kMost;
    bench.Form().IncompleteCount = kMost;
    bench.Form().CheckErrorCount = kMost;
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 2, 3}) {
        bench.Form().ReplyText.clear();
        bench.Parse(step, "@01");
        EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
        EXPECT_EQ(bench.Form().CycleStep, 1);
    }
    EXPECT_EQ(bench.Form().NoReplyCount, kMost);
    EXPECT_EQ(bench.Form().IncompleteCount, kMost);
    EXPECT_EQ(bench.Form().CheckErrorCount, kMost);
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(ParseTqReply, ReplyIsAlwaysTakenAway) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{0, 1, 2, 3, 4, 5, 6, 7}) {
        for (const char* reply : {kGoodReply, "@01RDC800646F\r", "", "\n", "@01XX01\r"}) {
            ParserBench bench;
            bench.Parse(step, reply);
            EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "") << step << reply;
        }
    }
}

// --- The reply word ---

TEST(ParseTqReply, ReplyWordSaysWhatWasAnswered) {
    struct Row {
        const char* reply;
        const char* note;
        bool isLogged;
    };
    const Row rows[] = {{"@07RR07\r", "     读取 7# 仪表的静态数据", false},
                        {"@07RD11\r", "     读取 7# 仪表的动态数据", false},
                        {"@07RE10\r", "     读取 7# 仪表的指定参数的数值", false},
                        {"@07**07\r", "     注意： 7# 仪表的通讯出错", true},
                        {"@07##07\r", "     修改 7# 仪表的参数", false},
                        {"@07rd11\r", "", true},
                        {"@07W262\r", "", true}};
    for (const Row& row : rows) {
        ParserBench bench;
        bench.Form().ConMeterAddr.Set(u"7");
        bench.Form().CommandCode = 50;
        bench.LogErrors();
        bench.Parse(1, row.reply);
        const std::string line = "<" + std::string(row.reply, 7) + "\\0D\r\nCRC校验正确  " + row.note;
        EXPECT_EQ(bench.Line(), line);
        EXPECT_EQ(bench.ErrorLine(), row.isLogged ? LoggedAs(line) : "") << row.reply;
    }
}

TEST(ParseTqReply, UnknownWordNamesTheFailureAndSetsTheCycleReady) {
    struct Row {
        std::int16_t step;
        const char* reply;
        const char* line;
    };
    const Row rows[] = {
        {2, "", "<\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据"},
        {3, "@01R", "<@01R\r\n数据不完整  注意：仪表无应答或返回软件无法识别的数据"},
        {3, kGoodReply, "<@01RDC800646E\\0D\r\n数据不完整  注意：仪表无应答或返回软件无法识别的数据"},
        {1, "\r", "<\\0D\r\nCRC校验错误  "},
        {7, "\n", "<\\0A\r\nCRC校验错误  "},
        {4, "@01R\r", "<@01R\\0D\r\nCRC校验错误  "},
        {5, "@01XX", "<@01XX\r\n"},
        {0, "", "<\r\n"}};
    for (const Row& row : rows) {
        ParserBench bench;
        bench.LogErrors();
        bench.Parse(row.step, row.reply);
        EXPECT_EQ(bench.Line(), row.line);
        EXPECT_EQ(bench.Form().CycleStep, 1) << row.step;
        EXPECT_EQ(bench.ErrorLine(), LoggedAs(row.line)) << row.step;
    }
}

TEST(ParseTqReply, KnownWordLeavesTheCycleStep) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{0, 1, 4, 5, 7}) {
        ParserBench bench;
        bench.Parse(step, kGoodReply);
        EXPECT_EQ(bench.Form().CycleStep, step);
    }
}

TEST(ParseTqReply, ErrorFileThatIsClosedIsPassedOver) {
    ParserBench bench;
    bench.Form().ConAutoSave[1].Set(true);
    bench.Parse(2, "");
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_EQ(bench.Form().CycleStep, 1);
    EXPECT_EQ(bench.Record(), "<\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据\r\n\r\n");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(ParseTqReply, ErrorInsideTheWalkIsPassedOver) {
    ParserBench bench;
    bench.SetCell(kDynamicRow, column::kLength, u"二");
    bench.Parse(1, kGoodReply);
    EXPECT_EQ(bench.Form().CheckErrorCount, 0);
    EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

// --- Answers in several parts ---

struct PartsBench : ParserBench {
    PartsBench() {
        Form().SetRunning(true);
        Form().SendText = FrameOf("@01RD17\r");
        Form().RxEventCount = 3;
    }
};

TEST(ParseTqReply, PartIsAnsweredWithTheContinueByte) {
    PartsBench bench;
    bench.Parse(7, "@01RDC8006C\n");
    EXPECT_EQ(bench.SentFrames(), std::vector<std::string>{"0A"});
    EXPECT_EQ(ToUtf8(bench.Form().SendText), " 0A");
    EXPECT_EQ(bench.Form().SendCount, 1);
    EXPECT_EQ(bench.Form().RxEventCount, 0);
    EXPECT_EQ(bench.Form().CycleStep, 7);
    EXPECT_EQ(ToUtf8(bench.Form().ConSendOutString[0].Value()), "\\0A");
    EXPECT_EQ(bench.Line(), "第 1 次, 向 仪表 发送: \\0A   收到: \r\n");
    EXPECT_EQ(bench.Record(), "<@01RDC8006C\\0A\r\nCRC校验正确       读取 1# 仪表的动态数据\r\n\r\n");
}

TEST(ParseTqReply, ContinueByteLeavesBeforeTheGridIsTouched) {
    PartsBench bench;
    std::string cellAtThatMoment = "not sent";
    bench.line.Answer = [&](const std::string&) -> std::vector<testing::Arrival> {
        cellAtThatMoment = bench.Cell(kDynamicRow, column::kGroupRead);
        return {};
    };
    bench.Parse(7, "@01RDC8006C\n");
    EXPECT_EQ(cellAtThatMoment, "");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
}

TEST(ParseTqReply, DemonstrationAsksForNoPart) {
    PartsBench bench;
    bench.Form().ConMyCommDriver.Click = nullptr;
    bench.Form().ConMyCommDriver.Set(true);
    bench.Parse(7, "@01RDC8006C\n");
    EXPECT_EQ(bench.line.FrameCount(), 0u);
    EXPECT_EQ(bench.Frame(), "@01RD17\r");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
}

TEST(ParseTqReply, NothingAsksForAPartBehindAWrongCheckWord) {
    PartsBench bench;
    bench.Parse(7, "@01RDC80000\n");
    EXPECT_EQ(bench.line.FrameCount(), 0u);
    EXPECT_EQ(bench.Frame(), "@01RD17\r");
}

TEST(ParseTqReply, PartOfUnknownWordIsNotContinuedButWalked) {
    PartsBench bench;
    bench.Form().CurrentRow = 8;
    bench.Parse(7, "@01XXC8007A\n");
    EXPECT_EQ(bench.line.FrameCount(), 0u);
    EXPECT_EQ(bench.Form().CycleStep, 1);
    EXPECT_EQ(bench.Cell(8, column::kNumber), "C800");
}

TEST(ParseTqReply, CompleteReplyIsNotContinued) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 4}) {
        PartsBench bench;
        bench.Parse(step, kGoodReply);
        EXPECT_EQ(bench.line.FrameCount(), 0u) << step;
    }
}

TEST(NativePartsOnTheLine, PartsFollowEachOtherOverTheRows) {
    ParserBench bench;
    bench.Form().CommandCode = 20;
    bench.Press(toolbar::kStartStop);
    bench.WillReply({"@01RRC8007A\n", "@01RR2C0171\r"});
    bench.line.RunUntil(500);
    EXPECT_EQ(bench.SentCharacters(), (std::vector<std::string>{"@01RR01\r", "\n", "@01RR01\r"}));
    EXPECT_EQ(bench.Cell(8, column::kValue), "200");
    EXPECT_EQ(bench.Cell(9, column::kValue), "300");
    EXPECT_EQ(bench.Form().SendCount, 3) << "the continue byte counts";
    EXPECT_GE(bench.Form().ConSendOutString[0].IndexOf(u" 0A"), 0);
}

TEST(NativePartsOnTheLine, PartThatNeverComesCountsAsAMissingReply) {
    ParserBench bench;
    bench.Form().CommandCode = 20;
    bench.Press(toolbar::kStartStop);
    bench.WillReply({"@01RRC8007A\n"});
    // The frame at 300, its part at 301, the step behind it at 401, four ticks of 300 milliseconds more.
    bench.line.RunUntil(1600);
    EXPECT_EQ(bench.Form().NoReplyCount, 0);
    bench.line.RunUntil(1601);
    EXPECT_EQ(bench.Form().NoReplyCount, 1);
    EXPECT_EQ(bench.line.FrameCount(), 2u);
    bench.line.RunUntil(1701);
    EXPECT_EQ(bench.line.FrameCount(), 3u);
}

}  // namespace
}  // namespace commtest
