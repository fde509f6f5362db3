#include <gtest/gtest.h>

#include <limits>

#include "app/rtu_bench.h"

namespace commtest {
namespace {

using testing::Arrival;
using testing::BytesOfHex;
using testing::LoggedAs;
using testing::RtuBench;

constexpr const char16_t* kGoodReply = u" 01 03 02 00 64 B9 AF";  // 100 for one row
constexpr const char16_t* kBadReply = u" 01 03 02 00 64 B9 AE";
constexpr int kRow = 6;

struct ReplyBench : RtuBench {
    explicit ReplyBench(int code = 31) : RtuBench(code) {
        Form().CommandCode = 50;
        Form().LogLine = u"<";
    }
    std::string Line() { return ToUtf8(Form().LogLine); }
};

// --- The record ---

TEST(RtuReply, GoodReadFillsItsRowAndStepsOn) {
    for (const int code : {31, 32, 33, 34, 35, 51}) {
        ReplyBench bench(code);
        bench.ReceiveHex(1, kGoodReply);
        EXPECT_EQ(bench.Line(), "<01 03 02 00 64 B9 AF\r\nCRC校验正确  成功读取 1# 仪表的静态/动态数据")
            << code;
        EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "0064") << code;
        EXPECT_EQ(bench.Cell(kRow, column::kValue), "100") << code;
        EXPECT_EQ(bench.Cell(kRow, column::kScaledValue), "100") << code;
        EXPECT_EQ(bench.Form().CurrentRow, 7) << code;
        EXPECT_EQ(bench.Form().CheckErrorCount, 0) << code;
    }
}

TEST(RtuReply, GivesTheCycleTheUsersInterval) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 2, 3}) {
        ReplyBench bench;
        bench.Form().ConDelayTime.Set(u"250");
        bench.ReceiveHex(step, kGoodReply);
        EXPECT_EQ(bench.Form().Timer1[1].Interval(), 250) << step;
    }
}

TEST(RtuReply, IntervalThatIsNoNumberIsPassedOver) {
    ReplyBench bench;
    bench.Form().ConDelayTime.Set(u"快");
    bench.ReceiveHex(1, kGoodReply);
    EXPECT_EQ(bench.Form().Timer1[1].Interval(), 300);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
}

TEST(RtuReply, RecordShowsTheReplyInTheChosenMode) {
    ReplyBench bench;
    bench.Form().ShowMode.Show(0);
    bench.ReceiveHex(1, u" 41 42 43 0D 44");
    EXPECT_EQ(bench.Line(), "<ABC\\0DD\r\nCRC校验错误  ");
    bench.Form().LogLine = u"<";
    bench.Form().ShowMode.Show(1);
    bench.ReceiveHex(1, u" 41 42 43 0D 44");
    EXPECT_EQ(bench.Line(), "<41 42 43 0D 44\r\nCRC校验错误  ");
}

TEST(RtuReply, ShownReplyIsTrimmed) {
    ReplyBench bench;
    bench.Form().ShowMode.Show(0);
    bench.ReceiveHex(1, u" 20 41 20 42 20");
    EXPECT_EQ(bench.Line(), "<A B\r\nCRC校验错误  ");
}

TEST(RtuReply, DisplayModeTouchesNeitherVerdictNorGrid) {
    ReplyBench bench;
    bench.Form().ShowMode.Show(0);
    bench.ReceiveHex(1, kGoodReply);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
    EXPECT_EQ(bench.Form().CheckErrorCount, 0);
}

TEST(RtuReply, NewestEntryStandsOnTop) {
    ReplyBench bench;
    bench.ReceiveHex(1, u" 01 08 00 10 1F 2E 69 E2");
    bench.Form().LogLine = u">";
    bench.ReceiveHex(2, u"");
    EXPECT_EQ(bench.Record(),
              ">\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据\r\n\r\n"
              "<01 08 00 10 1F 2E 69 E2\r\nCRC校验正确  通讯测试成功\r\n\r\n");
}

TEST(RtuReply, ReplyIsAlwaysTakenAway) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{0, 1, 2, 3, 4, 5, 6, 7}) {
        for (const char16_t* reply : {kGoodReply, kBadReply, u"", u" 01", u" 01 83 02 C0 F1"}) {
            ReplyBench bench;
            bench.ReceiveHex(step, reply);
            EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "") << step << ToUtf8(reply);
        }
    }
}

// --- By CycleStep ---

TEST(RtuReply, CompleteReplyIsJudgedByItsCheckBytes) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 4}) {
        ReplyBench bench;
        bench.ReceiveHex(step, kGoodReply);
        EXPECT_EQ(bench.Form().CheckErrorCount, 0) << step;
        EXPECT_EQ(bench.Form().CycleStep, step);
        bench.Form().LogLine = u"<";
        bench.ReceiveHex(step, kBadReply);
        EXPECT_EQ(bench.Line(), "<01 03 02 00 64 B9 AE\r\nCRC校验错误  成功读取 1# 仪表的静态/动态数据")
            << step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << step;
        EXPECT_EQ(bench.Form().CycleStep, step);
    }
}

TEST(RtuReply, CycleStepTellsMissingFromIncomplete) {
    struct Row {
        std::int16_t step;
        const char16_t* reply;
        int noReply;
        int incomplete;
        const char* line;
    };
    const Row rows[] = {
        {2, u"", 1, 0, "<\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据"},
        {2, kGoodReply, 1, 0,
         "<01 03 02 00 64 B9 AF\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据"},
        {3, u" 01 03", 0, 1, "<01 03\r\n数据不完整  注意：仪表无应答或返回软件无法识别的数据"},
        {3, kGoodReply, 0, 1,
         "<01 03 02 00 64 B9 AF\r\n数据不完整  注意：仪表无应答或返回软件无法识别的数据"}};
    for (const Row& row : rows) {
        ReplyBench bench;
        bench.LogErrors();
        bench.ReceiveHex(row.step, row.reply);
        EXPECT_EQ(bench.Line(), row.line);
        EXPECT_EQ(bench.ErrorLine(), LoggedAs(row.line));
        EXPECT_EQ(bench.Form().NoReplyCount, row.noReply) << row.step;
        EXPECT_EQ(bench.Form().IncompleteCount, row.incomplete) << row.step;
        EXPECT_EQ(bench.Form().CheckErrorCount, 0) << row.step;
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "") << row.step;
        EXPECT_EQ(bench.Form().CurrentRow, 6);
    }
}

// No check word is looked at and no counter moves; the function alone decides.
TEST(RtuReply, AnyOtherStepJudgesTheFunctionAlone) {
    for (const std::int16_t step : std::initializer_list<std::int16_t>{0, 5, 6, 7}) {
        ReplyBench bench;
        bench.LogErrors();
        bench.ReceiveHex(step, kBadReply);
        EXPECT_EQ(bench.Line(), "<01 03 02 00 64 B9 AE\r\n成功读取 1# 仪表的静态/动态数据") << step;
        EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
        EXPECT_EQ(bench.Form().CycleStep, step);
        bench.Form().LogLine = u"<";
        bench.ReceiveHex(step, u" 01 04 02 00 64 B8 DB");
        EXPECT_EQ(bench.Line(), "<01 04 02 00 64 B8 DB\r\n") << step;
        EXPECT_EQ(bench.ErrorLine(), LoggedAs("<01 04 02 00 64 B8 DB\r\n")) << step;
        EXPECT_EQ(bench.Cell(7, column::kSingleRead), "");
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_EQ(bench.Form().NoReplyCount + bench.Form().IncompleteCount + bench.Form().CheckErrorCount, 0);
    }
}

TEST(RtuReply, FewerThanThreeBytesFailTheirCheck) {
    for (const char16_t* reply : {u"", u" 01", u" FF FF"}) {
        ReplyBench bench;
        bench.ReceiveHex(1, reply);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << ToUtf8(reply);
        EXPECT_EQ(bench.Line().substr(bench.Line().find('\n') + 1), "CRC校验错误  ");
    }
}

TEST(RtuReply, CounterAtItsEndStaysAndTheRestGoesOn) {
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    ReplyBench bench;
    bench.Form().NoReplyCount = kMost;
    bench.Form().IncompleteCount = kMost;
    bench.Form().CheckErrorCount = kMost;
    for (const std::int16_t step : std::initializer_list<std::int16_t>{1, 2, 3}) {
        bench.ReceiveHex(step, u" 01");
        EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
        EXPECT_EQ(bench.Form().CycleStep, 1);
    }
    EXPECT_EQ(bench.Form().NoReplyCount, kMost);
    EXPECT_EQ(bench.Form().IncompleteCount, kMost);
    EXPECT_EQ(bench.Form().CheckErrorCount, kMost);
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(RtuReply, Code51AloneStepsOverASilentRow) {
    for (const int code : {31, 32, 33, 34, 35, 51}) {
        for (const std::int16_t step : std::initializer_list<std::int16_t>{2, 3, 5}) {
            ReplyBench bench(code);
            bench.ReceiveHex(step, u"");
            EXPECT_EQ(bench.Form().CurrentRow, code == 51 && step == 2 ? 7 : 6) << code << " " << step;
        }
    }
}

TEST(RtuReply, Code51AtTheEndOf16BitsStays) {
    ReplyBench bench(51);
    bench.Form().CurrentRow = 32767;
    bench.ReceiveHex(2, u"");
    EXPECT_EQ(bench.Form().CurrentRow, 32767);
    EXPECT_EQ(bench.Form().NoReplyCount, 1);
    EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
}

// --- Grid or error file ---

TEST(RtuReply, WrongCheckWordOfAReadIsCountedAndDecodedAllTheSame) {
    ReplyBench bench;
    bench.LogErrors();
    bench.ReceiveHex(1, kBadReply);
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "0064");
    EXPECT_EQ(bench.Form().CurrentRow, 7);
    EXPECT_EQ(bench.ErrorLine(), "");
}

// It lands in the row of the polling, not in the one that was edited.
TEST(RtuReply, EchoOfAWriteIsDecodedIntoCurrentRow) {
    ReplyBench bench;
    bench.Rows().Select(9, column::kNewValue);
    bench.ReceiveHex(1, u" 01 06 00 10 03 E8 88 B1");
    EXPECT_EQ(bench.Line(), "<01 06 00 10 03 E8 88 B1\r\nCRC校验正确  成功修改 1# 仪表的参数");
    EXPECT_EQ(bench.Cell(6, column::kSingleRead), "1003");
    EXPECT_EQ(bench.Cell(6, column::kValue), "4099");
    EXPECT_EQ(bench.Cell(9, column::kSingleRead), "");
    EXPECT_EQ(bench.Form().CurrentRow, 7);
}

TEST(RtuReply, AnswerOfFunction10IsDecodedToo) {
    ReplyBench bench;
    bench.ReceiveHex(1, u" 01 10 00 10 00 02 40 0D");
    EXPECT_EQ(bench.Cell(6, column::kSingleRead), "1000");
    EXPECT_EQ(bench.Form().CurrentRow, 7);
}

TEST(RtuReply, GroupReadLeavesTheLastRegisterAndCurrentRowBehindTheRowsFilled) {
    ReplyBench bench;
    bench.Form().CommandCode = 60;
    bench.ReceiveHex(1, u" 01 03 08 00 64 00 C8 01 2C 01 90 90 08");
    const char* raw[] = {"0064", "00C8", "012C", ""};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(bench.Cell(6 + i, column::kGroupRead), raw[i]);
        EXPECT_EQ(bench.Cell(6 + i, column::kSingleRead), "");
    }
    EXPECT_EQ(bench.Cell(8, column::kValue), "300");
    EXPECT_EQ(bench.Form().CurrentRow, 9);
}

TEST(RtuReply, TestsAndBoardTypeGoToTheErrorFileAndNotToTheGrid) {
    for (const char16_t* reply : {u" 01 08 00 10 1F 2E 69 E2", u" 01 09 00 00 00 12 5D C6"}) {
        ReplyBench bench;
        bench.LogErrors();
        bench.ReceiveHex(1, reply);
        EXPECT_EQ(bench.ErrorLine(), LoggedAs(bench.Line()));
        EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "");
        EXPECT_EQ(bench.Form().CurrentRow, 6);
        EXPECT_EQ(bench.Form().CheckErrorCount, 0);
    }
}

TEST(RtuReply, ExceptionWithAGoodCheckWordIsNoErrorOfTheFile) {
    ReplyBench bench;
    bench.LogErrors();
    bench.ReceiveHex(1, u" 01 83 02 C0 F1");
    EXPECT_EQ(bench.ErrorLine(), "");
    bench.ReceiveHex(1, u" 01 83 02 C0 F2");
    EXPECT_EQ(bench.ErrorLine(), LoggedAs(bench.Line()));
}

TEST(RtuReply, ErrorFileIsWrittenOnlyWhereTheUserWantsIt) {
    ReplyBench bench;
    bench.files.OpenErrorFile();
    bench.ReceiveHex(2, u"");
    EXPECT_EQ(bench.ErrorRecords(), "");
}

TEST(RtuReply, ErrorFileThatIsClosedIsPassedOver) {
    ReplyBench bench;
    bench.Form().ConAutoSave[1].Set(true);
    bench.ReceiveHex(2, u"");
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_EQ(bench.Form().CycleStep, 1);
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(RtuReply, ErrorInsideTheWalkIsPassedOver) {
    ReplyBench bench;
    bench.Form().MeterCodeText = u"31";
    bench.ReceiveHex(1, kGoodReply);
    EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "0064");
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "");
    EXPECT_EQ(bench.Form().CurrentRow, 6);
    EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

// --- By the function ---

struct RunningBench : ReplyBench {
    RunningBench() { Form().SetRunning(true); }
    void Take(const HexText& reply) { ReceiveHex(kCompleteLater, reply); }
    bool HasDecoded() { return !Cell(kRow, column::kSingleRead).empty(); }

    static constexpr std::int16_t kCompleteLater = 4;  // a CycleStep that a known function leaves
};

TEST(RtuReply, FunctionDecidesOverGridSessionAndStep) {
    constexpr bool kStops = true;
    constexpr bool kGoesOn = false;
    constexpr int kKnown = RunningBench::kCompleteLater;
    constexpr int kUnknown = 1;
    struct Row {
        const char16_t* function;
        const char16_t* check;
        bool decodesRight;
        bool decodesWrong;
        bool stops;
        int step;
    };
    const Row rows[] = {{u" 81", u" 91 D7", true, false, kGoesOn, kKnown},
                        {u" 82", u" 91 93", true, false, kGoesOn, kKnown},
                        {u" 83", u" 90 6F", true, false, kStops, kKnown},
                        {u" 84", u" 91 1B", true, false, kGoesOn, kKnown},
                        {u" 85", u" 90 E7", true, false, kGoesOn, kKnown},
                        {u" 86", u" 90 A3", true, false, kStops, kKnown},
                        {u" 87", u" 91 5F", true, false, kGoesOn, kKnown},
                        {u" 88", u" 92 4B", false, false, kGoesOn, kKnown},
                        {u" 03", u" B9 AF", true, true, kGoesOn, kKnown},
                        {u" 06", u" B9 63", true, true, kGoesOn, kKnown},
                        {u" 10", u" BD 2B", true, true, kGoesOn, kKnown},
                        {u" 08", u" BB 8B", false, false, kGoesOn, kKnown},
                        {u" 09", u" BA 77", false, false, kGoesOn, kKnown},
                        {u" 04", u" B8 DB", true, false, kGoesOn, kUnknown},
                        {u" 00", u" B9 EB", true, false, kGoesOn, kUnknown},
                        {u" 07", u" B8 9F", true, false, kGoesOn, kUnknown},
                        {u" 8F", u" 93 3F", true, false, kGoesOn, kUnknown}};
    for (const Row& row : rows) {
        SCOPED_TRACE(ToUtf8(row.function));
        const HexText content = Text(u" 01") + row.function + u" 02 00 64";

        RunningBench right;
        right.Take(content + row.check);
        EXPECT_EQ(right.HasDecoded(), row.decodesRight);
        EXPECT_EQ(right.Form().CheckErrorCount, 0);
        EXPECT_EQ(right.Form().IsRunning(), !row.stops);
        EXPECT_EQ(right.Form().CycleStep, row.step);

        RunningBench wrong;
        wrong.Take(content + u" 00 00");
        EXPECT_EQ(wrong.HasDecoded(), row.decodesWrong);
        EXPECT_EQ(wrong.Form().CheckErrorCount, 1);
        EXPECT_EQ(wrong.Form().IsRunning(), !row.stops);
        EXPECT_EQ(wrong.Form().CycleStep, row.step);
    }
}

TEST(RtuReply, ExceptionThatStopsLeavesStepAndRowAndShowsTheStartCaption) {
    for (const char16_t* reply :
         {u" 01 83 02 C0 F1", u" 01 83 03 01 31", u" 01 83 01 80 F0", u" 01 83 20 40 E8", u" 01 86 02 C3 A1",
          u" 01 86 03 02 61", u" 01 86 01 83 A0"}) {
        RunningBench bench;
        bench.Take(reply);
        EXPECT_FALSE(bench.Form().IsRunning()) << ToUtf8(reply);
        EXPECT_EQ(ToUtf8(bench.Form().StartStopCaption()), "开始通讯");
        EXPECT_EQ(bench.Form().CycleStep, RunningBench::kCompleteLater) << "the caption alone stops";
        EXPECT_EQ(bench.Form().CurrentRow, kRow) << "an exception has no data";
    }
}

TEST(RtuReply, BoardExceptionWithoutACheckWordIsNoWrongOne) {
    for (const char16_t* reply : {u" 01 88 02 C7 C1", u" 01 88 02 11 22", u" 01 88 00 00 00"}) {
        RunningBench bench;
        bench.Take(reply);
        EXPECT_EQ(bench.Form().CheckErrorCount, 0) << ToUtf8(reply);
        EXPECT_TRUE(bench.Form().IsRunning());
    }
}

// --- On the line ---

// A session that polls one row after the other; the far end answers the first frame only.
struct LineBench : ReplyBench {
    LineBench(int code, std::int32_t commandCode) : ReplyBench(code) {
        Press(4);
        Form().CommandCode = commandCode;
    }
    // The first answer, in pieces of some bytes each, 5 milliseconds from each other.
    void WillAnswerInPieces(const std::string& hex, std::size_t length) {
        line.Answer = [=, first = true](const std::string&) mutable -> std::vector<Arrival> {
            if (!std::exchange(first, false)) return {};
            const std::string bytes = BytesOfHex(hex);
            std::vector<Arrival> arrivals;
            for (std::size_t at = 0; at < bytes.size(); at += length) {
                arrivals.emplace_back(5 * (static_cast<std::int64_t>(arrivals.size()) + 1),
                                      bytes.substr(at, length));
            }
            return arrivals;
        };
    }
    std::int32_t Failures() { return Form().IncompleteCount + Form().CheckErrorCount + Form().NoReplyCount; }
};

TEST(RtuOnTheLine, PollingWalksOverTheRows) {
    LineBench bench(31, 50);
    bench.WillAnswer({"01 03 02 00 64 B9 AF", "01 03 02 00 65 78 6F", "01 03 02 00 64 B9 AF"});
    while (bench.line.FrameCount() < 4) bench.line.RunUntil(bench.line.Time() + 10);
    const std::vector<std::string> frames = bench.SentFrames();
    EXPECT_EQ(frames[0], "01 03 00 10 00 01 85 CF");
    EXPECT_EQ(frames[1].substr(0, 17), "01 03 00 11 00 01");
    EXPECT_EQ(frames[2].substr(0, 17), "01 03 00 12 00 01");
    EXPECT_EQ(bench.Cell(6, column::kValue), "100");
    EXPECT_EQ(bench.Cell(7, column::kValue), "101");
    EXPECT_EQ(bench.Failures(), 0);
}

// The frame end is judged at each chunk: a third byte 00 ends five bytes, function 08 ends with seven.
TEST(RtuOnTheLine, AnswersThatArriveByteByByteMayBeCutShort) {
    struct Row {
        std::int32_t commandCode;
        const char* reply;
        const char* shown;
    };
    const Row rows[] = {
        {50, "01 06 00 10 03 E8 88 B1", "01 06 00 10 03\r\nCRC校验错误  成功修改 1# 仪表的参数"},
        {80, "01 09 00 00 00 12 5D C6", "01 09 00 00 00\r\nCRC校验错误  成功读取 1# 板卡的类型"},
        {90, "01 08 00 10 1F 2E 69 E2", "01 08 00 10 1F\r\nCRC校验错误  通讯测试成功"},
        {90, "01 08 03 10 1F 2E 69 E2", "01 08 03 10 1F 2E 69\r\nCRC校验错误  通讯测试成功"}};
    for (const Row& row : rows) {
        LineBench bench(31, row.commandCode);
        bench.WillAnswerInPieces(row.reply, 1);
        bench.line.RunUntil(300 + 5 * 8 + 1);
        EXPECT_NE(bench.Record().find(std::string(row.shown) + "\r\n\r\n"), std::string::npos)
            << row.reply << bench.Record();
        EXPECT_EQ(bench.Form().CheckErrorCount, 1) << row.reply;
        EXPECT_EQ(bench.Cell(6, column::kSingleRead), "") << row.reply;
    }
}

TEST(RtuOnTheLine, TheSameAnswersInOnePieceAreGood) {
    struct Row {
        std::int32_t commandCode;
        const char* reply;
    };
    for (const Row& row : {Row{80, "01 09 00 00 00 12 5D C6"}, Row{90, "01 08 00 10 1F 2E 69 E2"}}) {
        LineBench bench(31, row.commandCode);
        bench.WillAnswerInPieces(row.reply, 8);
        bench.line.RunUntil(300 + 5 * 8 + 1);
        EXPECT_NE(bench.Record().find("CRC校验正确"), std::string::npos) << row.reply;
        EXPECT_EQ(bench.Failures(), 0) << row.reply;
    }
}

// The instrument has taken the write; its answer has no end that the session knows.
TEST(RtuOnTheLine, AnswerOfFunction10CountsAsIncomplete) {
    LineBench bench(31, 50);
    bench.WillAnswerInPieces("01 10 00 10 00 02 40 0D", 8);
    while (bench.Failures() == 0) bench.line.RunUntil(bench.line.Time() + 100);
    EXPECT_EQ(bench.Form().IncompleteCount, 1);
    EXPECT_EQ(bench.line.FrameCount(), 1U);
    EXPECT_NE(bench.Record().find("01 10 00 10 00 02 40 0D\r\n数据不完整"), std::string::npos)
        << bench.Record();
    EXPECT_EQ(bench.Cell(6, column::kSingleRead), "");
}

TEST(RtuOnTheLine, SilentInstrumentIsWalkedOverUnderCode51Only) {
    struct Row {
        int code;
        const char* second;
    };
    for (const Row& row : {Row{51, "01 03 00 11 00 02"}, Row{35, "01 03 00 10 00 02"}}) {
        LineBench bench(row.code, 50);
        while (bench.line.FrameCount() < 2) bench.line.RunUntil(bench.line.Time() + 100);
        EXPECT_EQ(bench.SentFrames()[0].substr(0, 17), "01 03 00 10 00 02");
        EXPECT_EQ(bench.SentFrames()[1].substr(0, 17), row.second);
        EXPECT_EQ(bench.Form().NoReplyCount, 1);
    }
}

// The caption alone stops: the next tick still builds a request and then closes the port.
TEST(RtuOnTheLine, ExceptionThatStopsLetsOneMoreRequestBeBuiltAndNotSent) {
    for (const char* reply : {"01 83 02 C0 F1", "01 86 02 C3 A1"}) {
        LineBench bench(31, 91);
        bench.WillAnswerInPieces(reply, 5);
        bench.line.RunUntil(306);
        EXPECT_FALSE(bench.Form().IsRunning());
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_EQ(bench.Form().CurrentRow, 7);
        EXPECT_TRUE(bench.line.PortOpen());
        bench.line.RunUntil(5000);
        EXPECT_EQ(bench.Form().CurrentRow, 8);
        EXPECT_EQ(ToUtf8(bench.Form().SendText).substr(0, 12), " 01 08 00 12");
        EXPECT_EQ(bench.line.FrameCount(), 1U) << reply;
        EXPECT_FALSE(bench.line.PortOpen());
        EXPECT_EQ(bench.Failures(), 0);
    }
}

}  // namespace
}  // namespace commtest
