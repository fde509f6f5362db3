#include <gtest/gtest.h>

#include <limits>

#include "app/instrument_bench.h"
#include "commands/toolbar_commands.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using testing::FrameOf;
using testing::InstrumentBench;
using testing::LoggedAs;

constexpr const char* kGoodReply = "@01RDC800646E\r";  // 200 for row 6, half of row 7
constexpr int kDynamicRow = 6;

struct ReplyBench : InstrumentBench {
    explicit ReplyBench(int code = 11)
        : InstrumentBench(code, {{u"测量值", u"0010", u"2", u"D", u"0"},
                                 {u"流量", u"0012", u"2", u"D", u"0"},
                                 {u"上限", u"0020", u"2", u"RW", u"0"},
                                 {u"下限", u"0022", u"2", u"RW", u"0"}}) {
        Form().LogLine = u"<";
    }
    std::string Line() { return ToUtf8(Form().LogLine); }
};

// --- The record ---

TEST(NativeReply, GivesTheCycleTheUsersInterval) {
    ReplyBench bench;
    bench.Form().ConDelayTime.Set(u"250");
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(bench.Form().Timer1[1].Interval(), 250);
}

TEST(NativeReply, IntervalThatIsNoNumberIsPassedOver) {
    ReplyBench bench;
    bench.Form().ConDelayTime.Set(u"快");
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(bench.Form().Timer1[1].Interval(), 300);
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "200");
}

TEST(NativeReply, RecordShowsTheReplyInTheChosenMode) {
    ReplyBench bench;
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(bench.Line(), "<@01RDC800646E\\0D\r\nCRC校验正确       读取 1# 仪表的动态数据");
    bench.Form().LogLine = u"<";
    bench.Form().ShowMode.Show(1);
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(bench.Line(),
              "<40 30 31 52 44 43 38 30 30 36 34 36 45 0D\r\nCRC校验正确       读取 1# 仪表的动态数据");
}

TEST(NativeReply, DisplayModeDoesNotTouchTheGrid) {
    for (const int mode : {0, 1}) {
        ReplyBench bench;
        bench.Form().ShowMode.Show(mode);
        bench.Receive(1, kGoodReply);
        EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
        EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "200");
    }
}

TEST(NativeReply, ShownReplyIsTrimmed) {
    ReplyBench bench;
    bench.Receive(1, "  @01RD\r  ");
    EXPECT_EQ(bench.Line().substr(0, 11), "<@01RD\\0D\r\n");
}

TEST(NativeReply, NewestEntryStandsOnTop) {
    ReplyBench bench;
    bench.Receive(1, "@01##01\r");
    bench.Form().LogLine = u">";
    bench.Receive(1, "@01##01\r");
    EXPECT_EQ(bench.Record(),
              ">@01##01\\0D\r\nCRC校验正确       修改 1# 仪表的参数\r\n\r\n"
              "<@01##01\\0D\r\nCRC校验正确       修改 1# 仪表的参数\r\n\r\n");
}

// --- The verdict ---

TEST(NativeReply, FrameEndIsJudgedByTheCheckWord) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 4, 7}) {
        ReplyBench bench;
        bench.Receive(step, kGoodReply);
        EXPECT_EQ(bench.Record(), "<@01RDC800646E\\0D\r\nCRC校验正确       读取 1# 仪表的动态数据\r\n\r\n")
            << step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 0);
        bench.Form().LogLine = u"<";
        bench.Receive(step, "@01RDC800646F\r");
        EXPECT_EQ(bench.Line(), "<@01RDC800646F\\0D\r\nCRC校验错误       读取 1# 仪表的动态数据") << step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << step;
    }
}

TEST(NativeReply, EachCodeHasItsCheckWord) {
    struct Row {
        int code;
        const char* good;
        const char* bad;
    };
    const Row rows[] = {{11, "@01RDC800646E\r", "@01RDC800643C\r"},
                        {12, "@01RDC800643C\r", "@01RDC800646E\r"},
                        {13, "@01RDC8006405E\r", "@01RDC8006406C\r"}};
    for (const Row& row : rows) {
        ReplyBench bench(row.code);
        bench.Receive(1, row.bad);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << row.code;
        bench.Receive(1, row.good);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << row.code;
    }
}

TEST(NativeReply, FillBehindTheCheckWordFailsUnderEveryCode) {
    for (const int code : {11, 13}) {
        ReplyBench bench(code);
        bench.Receive(1, "@01RDC800646E00\r");
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << code;
    }
}

TEST(NativeReply, WrongCheckWordLeavesTheGridAlone) {
    ReplyBench bench;
    bench.Form().CurrentRow = 9;
    bench.Receive(1, "@01RDC800646F\r");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "");
    EXPECT_EQ(bench.Form().CurrentRow, 9);
    EXPECT_EQ(ToUtf8(bench.Form().DynamicSample), "");
}

TEST(NativeReply, SumThatLeaves16BitsCountsAsAWrongCheckWord) {
    ReplyBench bench(12);
    bench.Receive(1, "@01RD" + std::string(140, '\xFF') + "00\r");
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(NativeReply, CycleStepTellsMissingFromIncomplete) {
    struct Row {
        std::int16_t step;
        int noReply;
        int incomplete;
    };
    for (const Row& row : {Row{2, 1, 0}, Row{3, 0, 1}, Row{0, 0, 0}, Row{5, 0, 0}, Row{6, 0, 0}}) {
        ReplyBench bench;
        bench.Receive(row.step, kGoodReply);
        EXPECT_EQ(bench.Form().NoReplyCount, row.noReply) << row.step;
        EXPECT_EQ(bench.Form().IncompleteCount, row.incomplete) << row.step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 0) << row.step;
        EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "") << row.step;
    }
}

TEST(NativeReply, CounterAtItsEndStaysAndTheRestGoesOn) {
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    ReplyBench bench;
    bench.Form().NoReplyCount = kMost;
    bench.Form().IncompleteCount = kMost;
    bench.Form().CheckErrorCount = kMost;
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 2, 3}) {
        bench.Form().ReplyText.clear();
        bench.Receive(step, "@01");
        EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
        EXPECT_EQ(bench.Form().CycleStep, 1);
    }
    EXPECT_EQ(bench.Form().NoReplyCount, kMost);
    EXPECT_EQ(bench.Form().IncompleteCount, kMost);
    EXPECT_EQ(bench.Form().CheckErrorCount, kMost);
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(NativeReply, ReplyIsAlwaysTakenAway) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{0, 1, 2, 3, 4, 5, 6, 7}) {
        for (const char* reply : {kGoodReply, "@01RDC800646F\r", "", "\n", "@01XX01\r"}) {
            ReplyBench bench;
            bench.Receive(step, reply);
            EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "") << step << reply;
        }
    }
}

// --- The reply word ---

TEST(NativeReply, ReplyWordSaysWhatWasAnswered) {
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
        ReplyBench bench;
        bench.Form().ConMeterAddr.Set(u"7");
        bench.Form().CommandCode = 50;
        bench.LogErrors();
        bench.Receive(1, row.reply);
        const std::string line = "<" + std::string(row.reply, 7) + "\\0D\r\nCRC校验正确  " + row.note;
        EXPECT_EQ(bench.Line(), line);
        EXPECT_EQ(bench.ErrorLine(), row.isLogged ? LoggedAs(line) : "") << row.reply;
    }
}

TEST(NativeReply, UnknownWordNamesTheFailureAndSetsTheCycleReady) {
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
        ReplyBench bench;
        bench.LogErrors();
        bench.Receive(row.step, row.reply);
        EXPECT_EQ(bench.Line(), row.line);
        EXPECT_EQ(bench.Form().CycleStep, 1) << row.step;
        EXPECT_EQ(bench.ErrorLine(), LoggedAs(row.line)) << row.step;
    }
}

TEST(NativeReply, KnownWordLeavesTheCycleStep) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{0, 1, 4, 5, 7}) {
        ReplyBench bench;
        bench.Receive(step, kGoodReply);
        EXPECT_EQ(bench.Form().CycleStep, step);
    }
}

TEST(NativeReply, ErrorFileThatIsClosedIsPassedOver) {
    ReplyBench bench;
    bench.Form().ConAutoSave[1].Set(true);
    bench.Receive(2, "");
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_EQ(bench.Form().CycleStep, 1);
    EXPECT_EQ(bench.Record(), "<\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据\r\n\r\n");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(NativeReply, ErrorInsideTheWalkIsPassedOver) {
    ReplyBench bench;
    bench.SetCell(kDynamicRow, column::kLength, u"二");
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(bench.Form().CheckErrorCount, 0);
    EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

// --- Answers in several parts ---

struct PartsBench : ReplyBench {
    PartsBench() {
        Form().SetRunning(true);
        Form().SendText = FrameOf("@01RD17\r");
        Form().RxEventCount = 3;
    }
};

TEST(NativeReply, PartIsAnsweredWithTheContinueByte) {
    PartsBench bench;
    bench.Receive(7, "@01RDC8006C\n");
    EXPECT_EQ(bench.SentFrames(), std::vector<std::string>{"0A"});
    EXPECT_EQ(ToUtf8(bench.Form().SendText), " 0A");
    EXPECT_EQ(bench.Form().SendCount, 1);
    EXPECT_EQ(bench.Form().RxEventCount, 0);
    EXPECT_EQ(bench.Form().CycleStep, 7);
    EXPECT_EQ(ToUtf8(bench.Form().ConSendOutString[0].Value()), "\\0A");
    EXPECT_EQ(bench.Line(), "第 1 次, 向 仪表 发送: \\0A   收到: \r\n");
    EXPECT_EQ(bench.Record(), "<@01RDC8006C\\0A\r\nCRC校验正确       读取 1# 仪表的动态数据\r\n\r\n");
}

TEST(NativeReply, ContinueByteLeavesBeforeTheGridIsTouched) {
    PartsBench bench;
    std::string cellAtThatMoment = "not sent";
    bench.line.Answer = [&](const std::string&) -> std::vector<testing::Arrival> {
        cellAtThatMoment = bench.Cell(kDynamicRow, column::kGroupRead);
        return {};
    };
    bench.Receive(7, "@01RDC8006C\n");
    EXPECT_EQ(cellAtThatMoment, "");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
}

TEST(NativeReply, DemonstrationAsksForNoPart) {
    PartsBench bench;
    bench.Form().ConMyCommDriver.Click = nullptr;
    bench.Form().ConMyCommDriver.Set(true);
    bench.Receive(7, "@01RDC8006C\n");
    EXPECT_EQ(bench.line.FrameCount(), 0u);
    EXPECT_EQ(bench.Frame(), "@01RD17\r");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
}

TEST(NativeReply, NothingAsksForAPartBehindAWrongCheckWord) {
    PartsBench bench;
    bench.Receive(7, "@01RDC80000\n");
    EXPECT_EQ(bench.line.FrameCount(), 0u);
    EXPECT_EQ(bench.Frame(), "@01RD17\r");
}

TEST(NativeReply, PartOfUnknownWordIsNotContinuedButWalked) {
    PartsBench bench;
    bench.Form().CurrentRow = 8;
    bench.Receive(7, "@01XXC8007A\n");
    EXPECT_EQ(bench.line.FrameCount(), 0u);
    EXPECT_EQ(bench.Form().CycleStep, 1);
    EXPECT_EQ(bench.Cell(8, column::kNumber), "C800");
}

TEST(NativeReply, CompleteReplyIsNotContinued) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 4}) {
        PartsBench bench;
        bench.Receive(step, kGoodReply);
        EXPECT_EQ(bench.line.FrameCount(), 0u) << step;
    }
}

TEST(NativePartsOnTheLine, PartsFollowEachOtherOverTheRows) {
    ReplyBench bench;
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
    ReplyBench bench;
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

// --- The rows of the walk ---

struct RowsBench : InstrumentBench {
    RowsBench()
        : InstrumentBench(11, {{u"测量值", u"0010", u"2", u"D", u"0"},
                               {u"流量", u"0012", u"4", u"D", u"0"},
                               {u"上限", u"0020", u"2", u"RW", u"0"},
                               {u"下限", u"0022", u"2", u"RW", u"0"}}) {}

    // A reply has come whose check word is right.
    void Walk(const std::string& reply) { Receive(1, reply); }
};

// Under a part that ends in 0A the continue byte is already in SendText.
TEST(NativeRowsOfASession, FirstPartStartsAtTheFirstReadableRowNotAtFirstDataRow) {
    struct Row {
        const char* reply;
        int row;
    };
    for (const Row& row : {Row{"@01RRC8007A\n", 8}, Row{"@01RRC8007A\r", 9}}) {
        RowsBench bench;
        bench.SetCell(8, column::kAttribute, u"R");
        bench.Form().FirstDataRow = 9;
        bench.Form().CommandCode = 20;
        bench.Press(4);
        bench.WillReply({row.reply});
        bench.line.RunUntil(301);
        EXPECT_EQ(bench.Cell(row.row, column::kGroupRead), "C800");
        EXPECT_EQ(bench.Form().CurrentRow, row.row + 1);
    }
}

TEST(NativeRowsOfASession, ChoosingAnInstrumentEmptiesTheSamples) {
    RowsBench bench;
    bench.Walk("@01RRC8007A\r");
    bench.Walk("@01RDC8006C\r");
    bench.Form().ConMeterName[0].Click();
    EXPECT_EQ(ToUtf8(bench.Form().StaticSample + bench.Form().DynamicSample), "");
}

TEST(NativeRowsOfASession, RowsOutliveAChangeOfInstrument) {
    RowsBench bench;
    bench.Form().CurrentRow = 11;
    bench.Add(u"别的", u"TQ仪表协议", u"110200", {{u"值", u"0010", u"2", u"D", u"0"}});
    bench.Choose(u"TQ仪表协议", u"别的");
    EXPECT_EQ(bench.Form().FirstDataRow, 8);
    EXPECT_EQ(bench.Form().CurrentRow, 11);
}

}  // namespace
}  // namespace commtest
