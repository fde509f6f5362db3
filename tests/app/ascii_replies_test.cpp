#include <gtest/gtest.h>

#include <limits>

#include "app/ascii_bench.h"
#include "commands/toolbar_commands.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using testing::AsciiBench;
using testing::LoggedAs;

constexpr const char* kGoodReply = ":010302006496\r\n";           // 100, code 21
constexpr const char* kGoodReplyTwo = ":0103050200001234EB\r\n";  // 12.34, code 22
constexpr int kRow = 6;

struct ReplyBench : AsciiBench {
    explicit ReplyBench(int code = 21)
        : AsciiBench(code, {{u"测量值", u"0010", code == 21 ? u"2" : u"5", u"R", u"0"},
                            {u"上限", u"0011", code == 21 ? u"2" : u"5", u"R", u"0"}}) {
        Form().LogLine = u"<";
        Form().CurrentRow = kRow;
    }
    // What the line says behind the shown reply.
    std::string VerdictOn(std::int16_t step, const std::string& reply) {
        Form().LogLine.clear();
        Form().CurrentRow = kRow;
        Receive(step, reply);
        const std::string logged = ToUtf8(Form().LogLine);
        return logged.substr(logged.find("\r\n") + 2);
    }
};

constexpr const char* kRight = "CRC校验正确  ";
constexpr const char* kWrong = "CRC校验错误  ";

// --- The record ---

TEST(AsciiReply, GivesTheCycleTheUsersInterval) {
    for (const int code : {21, 22}) {
        ReplyBench bench(code);
        bench.Form().ConDelayTime.Set(u"250");
        bench.Receive(1, kGoodReply);
        EXPECT_EQ(bench.Form().Timer1[1].Interval(), 250);
    }
}

TEST(AsciiReply, IntervalThatIsNoNumberIsPassedOver) {
    ReplyBench bench;
    bench.Form().ConDelayTime.Set(u"快");
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(bench.Form().Timer1[1].Interval(), 300);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
}

TEST(AsciiReply, RecordShowsTheReplyInTheChosenMode) {
    ReplyBench bench;
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(ToUtf8(bench.Form().LogLine),
              "<:010302006496\\0D\\0A\r\nCRC校验正确  成功读取 1# 仪表的静态/动态数据");
    bench.Form().ShowMode.Show(1);
    bench.Form().LogLine = u"<";
    bench.Receive(1, kGoodReply);
    EXPECT_EQ(ToUtf8(bench.Form().LogLine),
              "<3A 30 31 30 33 30 32 30 30 36 34 39 36 0D 0A\r\nCRC校验正确  成功读取 1# "
              "仪表的静态/动态数据");
}

TEST(AsciiReply, ShownReplyIsTrimmed) {
    ReplyBench bench;
    bench.Receive(3, "  :01  ");
    EXPECT_EQ(ToUtf8(bench.Form().LogLine).substr(0, 6), "<:01\r\n");
}

TEST(AsciiReply, NewestRecordStandsOnTop) {
    ReplyBench bench;
    bench.Receive(1, kGoodReply);
    bench.Form().LogLine = u">";
    bench.Receive(2, "");
    EXPECT_EQ(bench.Record(),
              ">\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据\r\n\r\n"
              "<:010302006496\\0D\\0A\r\nCRC校验正确  成功读取 1# 仪表的静态/动态数据\r\n\r\n");
}

TEST(AsciiReply, ReplyIsUsedUp) {
    for (const int code : {21, 22}) {
        for (const std::int16_t step : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{7}}) {
            ReplyBench bench(code);
            bench.Receive(step, kGoodReply);
            EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "") << step;
        }
    }
}

// --- The check word ---

TEST(AsciiReply, CheckWordOfEachCode) {
    struct Row {
        int code;
        const char* reply;
        bool isRight;
    };
    const Row rows[] = {{21, ":010302006496\r\n", true},   {21, ":010302006410\r\n", false},
                        {22, ":010302006410\r\n", true},   {22, ":010302006496\r\n", false},
                        {21, ":010302006497\r\n", false},  {21, ":010302006596\r\n", false},
                        {21, ":0206001003E8FD\r\n", true},  // the address is not looked at
                        {21, "x0103020102F7\r\n", false},   // one character more in the sum
                        {21, ":01030200AA50\r\n", true},   {21, ":01030200aa50\r\n", true},
                        {21, ":010302004248\r\n", false},  {21, ":010302006496xx", true}};
    for (const Row& row : rows) {
        ReplyBench bench(row.code);
        const std::string verdict = bench.VerdictOn(1, row.reply);
        EXPECT_TRUE(verdict.starts_with(row.isRight ? kRight : kWrong)) << row.reply << verdict;
        EXPECT_EQ(bench.Form().CheckErrorCount, row.isRight ? 0 : 1) << row.reply;
    }
}

TEST(AsciiReply, CheckWordInSmallLettersIsWrong) {
    ReplyBench bench;
    EXPECT_EQ(bench.VerdictOn(1, ":0103020001f9\r\n"), "CRC校验错误  成功读取 1# 仪表的静态/动态数据");
    EXPECT_EQ(bench.VerdictOn(1, ":0103020001F9\r\n"), "CRC校验正确  成功读取 1# 仪表的静态/动态数据");
}

// The program's own word of such a sum has three digits, so that the standard's "00" never agrees.
TEST(AsciiReply, CheckWordOfASumOf256IsWrongInTwoDigits) {
    ReplyBench bench;
    EXPECT_EQ(bench.VerdictOn(1, ":01030200FA00\r\n"), "CRC校验错误  成功读取 1# 仪表的静态/动态数据");
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "250");
}

// A byte that is no plain character, and a line end inside the frame, come back as others from their way
// through the text.
TEST(AsciiReply, StrangeBytesMakeAReplyWrongThoughItsSumIsRight) {
    const std::pair<int, std::string> replies[] = {{21,
                                                    ":010302\xE9\xE9"
                                                    "6496\r\n"},
                                                   {21, ":010302\r\r6496\r\n"},
                                                   {22,
                                                    ":0103020064\xE9"
                                                    "27\r\n"}};
    for (const auto& [code, reply] : replies) {
        ReplyBench bench(code);
        EXPECT_TRUE(bench.VerdictOn(1, reply).starts_with(kWrong)) << reply;
    }
    ReplyBench bench;
    EXPECT_TRUE(bench.VerdictOn(1, ":010302GG6496\r\n").starts_with(kRight));  // two zeros to the sum
}

TEST(AsciiReply, ReplyOfFewerThanFourCharactersIsWrong) {
    for (const int code : {21, 22}) {
        for (const char* reply : {"\n", "\r\n", "6\r\n", "96\r\n"}) {
            ReplyBench bench(code);
            EXPECT_EQ(bench.VerdictOn(1, reply), kWrong) << reply;
            EXPECT_EQ(bench.Form().CheckErrorCount, 1);
        }
    }
}

TEST(AsciiReplyTwo, ReplyOfACheckWordAloneIsRightOverNothing) {
    ReplyBench bench(22);
    EXPECT_EQ(bench.VerdictOn(1, "00\r\n"), kRight);
    EXPECT_EQ(bench.Form().CheckErrorCount, 0);
}

TEST(AsciiReply, StepsOneAndFourJudgeAReply) {
    for (const int code : {21, 22}) {
        for (const std::int16_t step : {std::int16_t{1}, std::int16_t{4}}) {
            ReplyBench bench(code);
            EXPECT_EQ(bench.VerdictOn(step, code == 21 ? kGoodReply : kGoodReplyTwo),
                      "CRC校验正确  成功读取 1# 仪表的静态/动态数据");
            EXPECT_EQ(bench.Form().CycleStep, step);
        }
    }
}

TEST(AsciiReply, OtherStepsJudgeNothingAndDecodeADataReplyAllTheSame) {
    ReplyBench bench;
    EXPECT_EQ(bench.VerdictOn(7, kGoodReply), "成功读取 1# 仪表的静态/动态数据");
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
    EXPECT_EQ(bench.Form().CheckErrorCount + bench.Form().NoReplyCount + bench.Form().IncompleteCount, 0);
}

// --- Failures ---

TEST(AsciiReply, SilentInstrument) {
    for (const int code : {21, 22}) {
        ReplyBench bench(code);
        bench.LogErrors();
        EXPECT_EQ(bench.VerdictOn(2, ""), "仪表无应答  注意：仪表无应答或返回软件无法识别的数据");
        EXPECT_EQ(bench.Form().NoReplyCount, 1);
        EXPECT_EQ(bench.Form().IncompleteCount + bench.Form().CheckErrorCount, 0);
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_EQ(bench.Form().CurrentRow, kRow);
        EXPECT_EQ(bench.ErrorLine(), LoggedAs("\r\n仪表无应答  注意：仪表无应答或返回软件无法识别的数据"));
    }
}

TEST(AsciiReply, ReplyWithoutAnEnd) {
    for (const int code : {21, 22}) {
        ReplyBench bench(code);
        bench.LogErrors();
        EXPECT_EQ(bench.VerdictOn(3, ":010302"), "数据不完整  注意：仪表无应答或返回软件无法识别的数据");
        EXPECT_EQ(bench.Form().IncompleteCount, 1);
        EXPECT_EQ(bench.Form().NoReplyCount + bench.Form().CheckErrorCount, 0);
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "");
        EXPECT_EQ(bench.ErrorLine(),
                  LoggedAs(":010302\r\n数据不完整  注意：仪表无应答或返回软件无法识别的数据"));
    }
}

TEST(AsciiReply, FullCounterStays) {
    ReplyBench bench;
    bench.Form().NoReplyCount = std::numeric_limits<std::int32_t>::max();
    bench.Form().CheckErrorCount = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(bench.VerdictOn(2, ""), "仪表无应答  注意：仪表无应答或返回软件无法识别的数据");
    EXPECT_EQ(bench.VerdictOn(1, ":010302006497\r\n"), "CRC校验错误  成功读取 1# 仪表的静态/动态数据");
    EXPECT_EQ(bench.Form().NoReplyCount, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(bench.Form().CheckErrorCount, std::numeric_limits<std::int32_t>::max());
}

TEST(AsciiReply, FailedCheckOfADataReplyIsDecodedAllTheSame) {
    for (const char* reply : {":010302006497\r\n", ":010602006497\r\n"}) {
        ReplyBench bench;
        bench.Receive(1, reply);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1);
        EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
        EXPECT_EQ(bench.Form().CurrentRow, kRow + 1);
    }
}

TEST(AsciiReply, FailedCheckOfAnExceptionTouchesNoRow) {
    ReplyBench bench;
    bench.SetCell(kRow, column::kSingleRead, u"0064");
    bench.Receive(1, ":01820100\r\n");
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "0064");
    EXPECT_EQ(bench.Form().CurrentRow, kRow);
}

// --- The verdicts ---

TEST(AsciiReply, ExceptionTellsItsText) {
    struct Row {
        const char* reply;
        const char* text;
    };
    const Row rows[] = {{":0181027C\r\n", "指令错误，指令不被识别！"},
                        {":0182027B\r\n", "指令错误，指定地址(寄存器)无法执行该指令！"},
                        {":0183027A\r\n", "指令错误，读/写数据超出上下限范围！"},
                        {":01840279\r\n", "自诊断错误！"},
                        {":01850278\r\n", "指令错误，读取数据长度为零！"},
                        {":01860277\r\n", "设置错误，写入数据时CLK必须等于 8 ！"},
                        {":01870276\r\n", "指令错误，写入的数据超出该参数的上下限范围！"},
                        {":01880275\r\n", "仪表系统忙！"}};
    for (const Row& row : rows) {
        ReplyBench bench;
        bench.Press(toolbar::kStartStop);
        bench.LogErrors();
        EXPECT_EQ(bench.VerdictOn(1, row.reply), std::string(kRight) + row.text);
        EXPECT_EQ(bench.Form().CheckErrorCount, 0);
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_TRUE(bench.Form().IsRunning());  // none of them stops the polling
        const std::string shown = std::string(row.reply, 9) + "\\0D\\0A\r\n";
        EXPECT_EQ(bench.ErrorLine(), LoggedAs(shown + kRight + row.text));
    }
}

TEST(AsciiReply, ExceptionLeavesTheStepAsItIs) {
    ReplyBench bench;
    bench.Receive(4, ":0183027A\r\n");
    EXPECT_EQ(bench.Form().CycleStep, 4);
}

TEST(AsciiReply, GoodAnswersNameTheInstrumentInDecimal) {
    ReplyBench bench;
    bench.Form().AddressText = u"0A";
    EXPECT_EQ(bench.VerdictOn(1, kGoodReply), "CRC校验正确  成功读取 10# 仪表的静态/动态数据");
    EXPECT_EQ(bench.VerdictOn(1, ":0106001003E8FE\r\n"), "CRC校验正确  成功修改 10# 仪表的参数");
    bench.Form().AddressText = u"FF";
    EXPECT_EQ(bench.VerdictOn(1, kGoodReply), "CRC校验正确  成功读取 255# 仪表的静态/动态数据");
}

TEST(AsciiReply, GoodAnswersAreNoErrors) {
    ReplyBench bench;
    bench.LogErrors();
    bench.Receive(1, kGoodReply);
    bench.Receive(1, ":0106001003E8FE\r\n");
    bench.Receive(1, ":010302006497\r\n");
    EXPECT_EQ(bench.ErrorRecords(), "");
}

TEST(AsciiReply, OtherFunctionsSayNothingAndAreRecordedAsErrors) {
    for (const char* reply : {":010402006495\r\n", ":01080010ABCD6F\r\n", ":011000100002DD\r\n",
                              ":010900000012E4\r\n", ":01890274\r\n"}) {
        ReplyBench bench;
        bench.LogErrors();
        const std::string verdict = bench.VerdictOn(4, reply);
        EXPECT_EQ(verdict, kRight) << reply;
        EXPECT_EQ(bench.Form().CycleStep, 1);
        EXPECT_NE(bench.ErrorLine(), "");
    }
}

TEST(AsciiReply, OtherFunctionWithAGoodCheckWordIsDecoded) {
    ReplyBench bench;
    bench.Receive(1, ":010402006495\r\n");
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
}

TEST(AsciiReply, DisplayModeDoesNotTouchTheGrid) {
    for (const int mode : {0, 1}) {
        ReplyBench bench;
        bench.Form().ShowMode.Show(mode);
        bench.Receive(1, kGoodReply);
        EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "0064");
        EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
    }
}

// --- On the line ---

TEST(AsciiReplyOnTheLine, LineFeedEndsAReplyThatComesInPieces) {
    ReplyBench bench;
    bench.Form().CommandCode = 40;
    bench.line.Answer = [](const std::string&) {
        return std::vector<testing::Arrival>{{10, ":010302"}, {20, "00649"}, {30, "6\r"}, {40, "\n"}};
    };
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(300 + 39);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "");
    bench.line.RunUntil(300 + 40);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
    EXPECT_EQ(bench.Form().CheckErrorCount + bench.Form().IncompleteCount, 0);
}

TEST(AsciiReplyOnTheLine, ExceptionsDoNotStopThePolling) {
    ReplyBench bench;
    bench.SetCell(kRow + 2, column::kLength, u"2");  // each exception steps on by a row
    bench.WillReply({":0183027A\r\n", ":01860277\r\n", kGoodReply});
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(502);
    EXPECT_TRUE(bench.Form().IsRunning());
    EXPECT_EQ(bench.Form().SendCount, 3);
}

TEST(AsciiReplyOnTheLine, RepliesOfCode23AreNeverRecognised) {
    AsciiBench bench(23, {{u"测量值", u"0010", u"2", u"R", u"0"}});
    bench.line.Answer = [](const std::string&) { return std::vector<testing::Arrival>{{10, kGoodReply}}; };
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(5000);
    EXPECT_GE(bench.Form().SendCount, 3);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "");
    EXPECT_EQ(bench.Form().CheckErrorCount + bench.Form().NoReplyCount + bench.Form().IncompleteCount, 0);
}

}  // namespace
}  // namespace commtest
