// The two special instruments in a whole session: the walk of a NOVAX one, its writes and its addresses; the
// rows of the flow meter and what is not counted of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/instrument_bench.h"
#include "commands/toolbar_commands.h"
#include "commissioning/parameter_write.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::Happen;
using testing::InstrumentBench;

// --- NOVAX ---

// Rows 6 to 9 are the status rows, 10 to 14 the parameters.
struct NovaxBench : InstrumentBench {
    NovaxBench()
        : InstrumentBench(41, {{u"状态一", u"0001", u"2", u"R", u"1"},
                               {u"状态二", u"0002", u"2", u"R", u"0"},
                               {u"状态三", u"0003", u"1", u"R", u"0"},
                               {u"状态四", u"0004", u"1", u"R", u"0"},
                               {u"设定", u"0012", u"2", u"RW", u"1"},
                               {u"上限", u"0013", u"2", u"RW", u"1"},
                               {u"下限", u"0014", u"2", u"RW", u"1"},
                               {u"速率", u"0015", u"2", u"RW", u"1"},
                               {u"周期", u"0016", u"2", u"RW", u"1"}}) {
        Form().ConMeterAddr.Set(u"2");
        Form().ConMeterAddr.Set(u"1");
        Form().CommandCode = 50;
    }

    void RunUntil(std::int64_t time) {
        Press(toolbar::kStartStop);
        line.RunUntil(time);
    }
};

// The value 100 (0064) of the row that is asked for, the status values 1, 2, 3 and 4.
const std::string kHundred = "01 00 02 00 03 04 64 00 00 00";

TEST(NovaxSession, ListIsWalkedOneRowAPollAndBeginsAnew) {
    NovaxBench bench;
    bench.WillAnswer(std::vector<std::string>(6, kHundred));
    bench.RunUntil(850);
    EXPECT_THAT(bench.SentFrames(),
                ElementsAre("81 81 52 12 00 00 53 12", "81 81 52 13 00 00 53 13", "81 81 52 14 00 00 53 14",
                            "81 81 52 15 00 00 53 15", "81 81 52 16 00 00 53 16", "81 81 52 12 00 00 53 12"));
    for (const int row : {10, 11, 12, 13, 14}) EXPECT_EQ(bench.Cell(row, 9), "10.0") << row;
    EXPECT_EQ(bench.Cell(6, 9), "0.1");
    EXPECT_EQ(bench.Cell(9, 9), "4");
    EXPECT_EQ(bench.Form().CurrentRow, 11);
}

TEST(NovaxSession, RowThatIsNotAnsweredIsAskedForAgain) {
    NovaxBench bench;
    bench.RunUntil(300 + 1200 + 100);
    EXPECT_THAT(bench.SentFrames(), ElementsAre("81 81 52 12 00 00 53 12", "81 81 52 12 00 00 53 12"));
}

TEST(NovaxSession, SilenceIsCountedAndRecordedAsAReadWithoutAWarning) {
    NovaxBench bench;
    bench.LogErrors();
    bench.SetCell(10, 8, u"7");
    bench.RunUntil(1500);
    EXPECT_EQ(bench.Form().NoReplyCount, 1);
    EXPECT_EQ(bench.Record(),
              "第 1 次, 向 仪表 发送:  81 81 52 12 00 00 53 12   收到: \r\n\r\n"
              "     读取 1# 仪表的静态数据\r\n\r\n");
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_EQ(bench.Cell(10, 8), "7");
    EXPECT_EQ(bench.Cell(6, 7), "");
}

TEST(NovaxSession, NineBytesAreIncompleteAndReachNoRow) {
    NovaxBench bench;
    bench.LogErrors();
    bench.WillAnswer({"01 00 02 00 03 04 64 00 00"});
    bench.RunUntil(1801);
    EXPECT_EQ(bench.Form().IncompleteCount, 1);
    EXPECT_EQ(bench.Form().NoReplyCount, 0);
    EXPECT_EQ(bench.Cell(6, 7), "");
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_THAT(bench.Record(),
                ::testing::EndsWith("\r\n01 00 02 00 03 04 64 00 00\r\n     读取 1# 仪表的静态数据\r\n\r\n"));
}

TEST(NovaxSession, ReplyWithAnyCheckWordPassesAndIsNotCounted) {
    NovaxBench bench;
    bench.WillAnswer({"01 00 02 00 03 04 64 00 FF FF"});
    bench.RunUntil(350);
    EXPECT_EQ(bench.Form().CheckErrorCount, 0);
    EXPECT_THAT(bench.Record(),
                ::testing::EndsWith("FF FF\r\nCRC校验正确       读取 1# 仪表的静态数据\r\n\r\n"));
    EXPECT_EQ(bench.Cell(10, 9), "10.0");
}

// --- Its addresses ---

TEST(NovaxAddress, Of127IsFFTwice) {
    NovaxBench bench;
    bench.Form().ConMeterAddr.Set(u"127");
    bench.RunUntil(300);
    EXPECT_THAT(bench.SentFrames(), ElementsAre("FF FF 52 12 00 00 D1 12"));
}

// 128 + 128 is 100: the control falls back to 1, the frame keeps three digits a group. The port takes it by
// positions: "10", then " 1", which is no byte.
TEST(NovaxAddress, Above127TheControlFallsBackTo1AndTheFrameKeepsThreeDigitsAGroup) {
    NovaxBench bench;
    bench.Form().ConMeterAddr.Set(u"128");
    EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), "1");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 100 100");
    bench.RunUntil(300);
    EXPECT_EQ(ToUtf8(bench.Form().SendText), " 100 100 52 12 00 00 01 02");
    EXPECT_THAT(bench.SentFrames(), ElementsAre("10"));
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("对不起，数据串中含有非法字符,无法完成数据转换！"));
}

TEST(NovaxAddress, NextChangeEndsTheThreeDigits) {
    NovaxBench bench;
    bench.Form().ConMeterAddr.Set(u"128");
    bench.Form().ConMeterAddr.Set(u"3");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 83 83");
}

TEST(NovaxAddress, OfARecordedFrameShowsAs0) {
    NovaxBench bench;
    bench.Form().DemoFrames = {u" 85 85 52 12 00 00 57 12"};
    Happen(bench, [](MainForm& form) {
        form.CommandCode = 10050;
        BuildReadRequest(form);
    });
    EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), "0");
    EXPECT_EQ(ToUtf8(bench.Form().SendText), " 85 85 52 12 00 00 57 12");
}

// --- Its writes ---

TEST(NovaxWrite, LeavesOnceAndTheWalkGoesOn) {
    NovaxBench bench;
    bench.WillAnswer({kHundred, kHundred, kHundred});
    bench.Click(11, column::kNewValue);
    bench.TypeAndEnter(u"12.5");
    EXPECT_EQ(bench.Form().CommandCode, 150);
    bench.line.RunUntil(550);
    // 1300 + 7D + 43 + 1
    EXPECT_THAT(bench.SentFrames(),
                ElementsAre("81 81 43 13 7D 00 C1 13", "81 81 52 12 00 00 53 12", "81 81 52 13 00 00 53 13"));
    EXPECT_EQ(bench.Form().CommandCode, 50);
}

// The walk stood at row 12 when the write left: its answer goes there.
TEST(NovaxWrite, AnswerGoesToTheRowOfTheWalkAndMovesItOn) {
    NovaxBench bench;
    bench.Form().CurrentRow = 12;
    bench.WillAnswer({kHundred});
    bench.Click(10, column::kNewValue);
    bench.TypeAndEnter(u"10");
    bench.line.RunUntil(350);
    EXPECT_EQ(bench.Cell(12, 9), "10.0");
    EXPECT_EQ(bench.Cell(10, 9), "");
    EXPECT_EQ(bench.Form().CurrentRow, 13);
    EXPECT_EQ(bench.Form().Outcomes.Last()->verdict.answer, Answer::Written);
    EXPECT_THAT(bench.Record(), ::testing::EndsWith("CRC校验正确       读取 1# 仪表的静态数据\r\n\r\n"));
}

TEST(NovaxWrite, OverflowOfTheCheckWordIsError6AndNothingGoesOut) {
    NovaxBench bench;
    bench.SetCell(10, column::kAddress, u"007F");
    bench.Click(10, column::kNewValue);
    bench.TypeAndEnter(u"1000.0");
    EXPECT_EQ(bench.dialogs.Shown.at(0).number, 6);
    EXPECT_TRUE(bench.SentFrames().empty());
}

struct ProvedWrite : NovaxBench {
    ProvedWrite() : write(10, u"10") {
        Form().CommandCode = 40;
        write.Judge(Form());
        Happen(*this, [this](MainForm& form) { write.Enter(form); });
    }
    WriteOutcome NoteNext() {
        const auto before = Form().Outcomes.Total();
        line.RunWhile([&] { return Form().Outcomes.Total() == before; }, line.Time() + 10'000);
        write.NoteOutcome(Form(), Form().Outcomes.Last());
        return write.State();
    }

    ParameterWrite write;
};

TEST(NovaxWrite, IsProvedByTheReadBackAloneNotByItsAnswer) {
    ProvedWrite bench;
    EXPECT_FALSE(bench.write.Check().objection);
    EXPECT_EQ(ToUtf8(bench.write.Check().code), "0064");
    bench.WillAnswer({kHundred, "01 00 02 00 03 04 63 00 00 00"});
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Sent);
    Happen(bench, [](MainForm& form) { ReadRowNext(form, 10); });
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Different);
    EXPECT_EQ(ToUtf8(bench.write.ReadBack()), "9.9");
}

// The answer to the write stood in row 10; the walk goes on at row 11 and comes back to row 10.
TEST(NovaxWrite, ReadsOfOtherRowsDecideNothing) {
    ProvedWrite bench;
    bench.WillAnswer(std::vector<std::string>(6, kHundred));
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Sent);
    // Each fills rows 6 to 9 and its own, not those between.
    for (int row = 11; row <= 14; ++row) EXPECT_EQ(bench.NoteNext(), WriteOutcome::Sent) << row;
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Equal);
}

TEST(NovaxWrite, ValueThatSixteenBitsCannotHoldIsObjectedTo) {
    NovaxBench bench;
    const WriteCheck check = CheckWrite(bench.Form(), 10, u"5000");  // 50000 arrives as -15536
    EXPECT_EQ(check.objection, WriteObjection::DoesNotFit);
    EXPECT_EQ(ToUtf8(check.code), "C350");
    EXPECT_EQ(ToUtf8(check.arrives), "-1553.6");
}

// --- The flow meter ---

struct MeterBench : InstrumentBench {
    MeterBench()
        : InstrumentBench(42, {{u"流量", u"0010", u"2", u"RW", u"0"},
                               {u"流速", u"0011", u"2", u"R", u"2"},
                               {u"温度", u"0012", u"4", u"R", u"2"},
                               {u"累积", u"0013", u"4", u"R", u"0"}}) {
        Form().ConMeterAddr.Set(u"2");
        Form().ConMeterAddr.Set(u"1");
    }

    void RunUntil(std::int64_t time) {
        Press(toolbar::kStartStop);
        line.RunUntil(time);
    }
    std::string Readings(int col) {
        return Cell(6, col) + "|" + Cell(7, col) + "|" + Cell(8, col) + "|" + Cell(9, col);
    }
};

std::string Repeated(const std::string& bytes, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += bytes;
    return text;
}

// Its values are 12 34, 56 78, 90 12 34 and 56 78 90 12: sum 35A, exclusive or 12.
std::string MeterReply(const std::string& checks) {
    return Repeated("00 ", 47) + "12 34 56 78 90 12 34 56 78 90 12 " + checks;
}
const std::string kGood = MeterReply("5A 12 00 00 00 00");
const std::string kBad = MeterReply("5A 13 00 00 00 00");
const std::string kRequest = "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05";

TEST(Hct615dSession, GoodReplyFillsFourRows) {
    MeterBench bench;
    bench.WillAnswer({kGood});
    bench.RunUntil(350);
    EXPECT_EQ(bench.Readings(7), "1234|5678|901234|56789012");
    EXPECT_EQ(bench.Readings(9), "1234|56.78|9012.34|56789012");
    EXPECT_EQ(bench.Readings(8), "|||");
    EXPECT_THAT(bench.Record(), ::testing::EndsWith("CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n"));
}

TEST(Hct615dSession, BadReplyBlanksTheRowsAndIsInNoCounter) {
    MeterBench bench;
    bench.LogErrors();
    bench.WillAnswer({kGood, kBad});
    bench.RunUntil(450);
    EXPECT_EQ(bench.Readings(7), "|||");
    EXPECT_EQ(bench.Readings(9), "|.|.|");
    EXPECT_EQ(bench.Form().CheckErrorCount, 0);
    EXPECT_EQ(bench.Form().IncompleteCount + bench.Form().NoReplyCount, 0);
    EXPECT_EQ(bench.Form().Outcomes.Last()->verdict.check, CheckWord::Wrong);
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_THAT(bench.Record(), ::testing::HasSubstr("CRC校验错误       读取 1# 仪表的动态数据\r\n\r\n"));
}

TEST(Hct615dSession, SilenceBlanksTheRowsAndIsCounted) {
    MeterBench bench;
    bench.LogErrors();
    bench.WillAnswer({kGood});
    bench.RunUntil(401 + 1200);
    EXPECT_EQ(bench.Form().NoReplyCount, 1);
    EXPECT_EQ(bench.Readings(9), "|.|.|");
    EXPECT_EQ(bench.ErrorRecords(), "");
    EXPECT_THAT(bench.Record(), ::testing::HasSubstr("收到: \r\n\r\n     读取 1# 仪表的动态数据\r\n\r\n"));
}

TEST(Hct615dSession, SixtyThreeBytesAreIncompleteAndBlankTheRows) {
    MeterBench bench;
    bench.WillAnswer({MeterReply("5A 12 00 00 00")});
    bench.RunUntil(1801);
    EXPECT_EQ(bench.Form().IncompleteCount, 1);
    EXPECT_EQ(bench.Readings(7), "|||");
    EXPECT_EQ(bench.Readings(9), "|.|.|");
}

TEST(Hct615dSession, BytesBehindThe60thAreIgnored) {
    MeterBench bench;
    bench.WillAnswer({MeterReply("5A 12 FF FF FF FF FF FF FF")});
    bench.RunUntil(350);
    EXPECT_EQ(bench.Readings(7), "1234|5678|901234|56789012");
}

TEST(Hct615dSession, RequestIsTheSameAtEachPollWhateverTheCommandCode) {
    for (const std::int32_t code : {10, 31, 50, 80, 0, 150}) {
        MeterBench bench;
        bench.Form().CommandCode = code;
        bench.WillAnswer({kGood, kGood});
        bench.RunUntil(450);
        EXPECT_THAT(bench.SentFrames(), ElementsAre(kRequest, kRequest)) << code;
        EXPECT_EQ(bench.Form().CommandCode, code) << code;
    }
}

// An entry builds nothing and raises the code, which nothing takes back.
TEST(Hct615dSession, CodeThatAnEntryHasRaisedStaysRaised) {
    MeterBench bench;
    bench.WillAnswer({kGood, kGood});
    bench.Click(6, column::kNewValue);
    bench.TypeAndEnter(u"5");
    bench.line.RunUntil(450);
    EXPECT_EQ(bench.Form().CommandCode, 131);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(kRequest, kRequest));
}

}  // namespace
}  // namespace commtest
