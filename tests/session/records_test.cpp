#include "session/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/code_page.h"
#include "session/start_stop.h"
#include "support/error_of.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FormBench;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::NativeBench;
namespace frames = testing::frames;

std::string ErrorRecords(const testing::FakeProgramFiles& files) {
    return ToUtf8(FromFileBytes(files.ErrorFile));
}

// --- The error file ---

TEST(LogCommError, WritesMomentLineAndPortSettings) {
    FormBench bench;
    bench.form.ConAutoSave[1].Set(true);
    bench.files.OpenErrorFile();
    bench.form.LogLine = u"第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n\r\n仪表无应答";
    LogCommError(bench.form);
    EXPECT_EQ(ErrorRecords(bench.files),
              "2024-05-06 12:00:00第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n\r\n仪表无应答"
              "        串口设置: 9600,N,8,1\r\n\r\n");
}

TEST(LogCommError, WithoutItsTickWritesNothing) {
    FormBench bench;
    bench.files.OpenErrorFile();
    bench.form.LogLine = u"line";
    LogCommError(bench.form);
    EXPECT_EQ(bench.files.ErrorFile, "");
}

TEST(LogCommError, WithTheFileClosedRaisesError52) {
    FormBench bench;
    bench.form.ConAutoSave[1].Set(true);
    EXPECT_EQ(ErrorOf([&] { LogCommError(bench.form); }), 52);
    bench.form.ConAutoSave[1].Set(false);
    EXPECT_EQ(ErrorOf([&] { LogCommError(bench.form); }), 0);
}

TEST(LogCommError, CharactersOutsideTheCodePageAreWrittenAsQuestionMarks) {
    FormBench bench;
    bench.form.ConAutoSave[1].Set(true);
    bench.files.OpenErrorFile();
    bench.form.LogLine = Text(u"\u0000\u001b\u00ff\u0080", 4);
    LogCommError(bench.form);
    EXPECT_THAT(bench.files.ErrorFile, HasSubstr(std::string("12:00:00\0\x1b??        ", 20)));
}

class ErrorFileOfASession : public ::testing::Test {
  protected:
    ErrorFileOfASession() { form.ConAutoSave[1].Set(true); }

    // A click in column 10 of the first row.
    void Edit() { bench.Click(1, 10); }

    NativeBench bench;
    MainForm& form = bench.Form();
};

TEST_F(ErrorFileOfASession, HoldsARecordForEachMissingReply) {
    bench.Start();
    bench.line.RunUntil(2800);
    EXPECT_EQ(form.NoReplyCount, 2);
    EXPECT_EQ(ErrorRecords(bench.files),
              "2024-05-06 12:00:01第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n\r\n"
              "仪表无应答  注意：仪表无应答或返回软件无法识别的数据        串口设置: 9600,N,8,1\r\n\r\n"
              "2024-05-06 12:00:02第 2 次, 向 仪表甲 发送: @01RR01\\0D   收到: \r\n\r\n"
              "仪表无应答  注意：仪表无应答或返回软件无法识别的数据        串口设置: 9600,N,8,1\r\n\r\n");
}

TEST_F(ErrorFileOfASession, IsOpenFromStartToStopOfButton4) {
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    bench.Start();
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    bench.Stop();
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
}

TEST_F(ErrorFileOfASession, StaysClosedInASessionStartedByEnterAndItsErrorsArePassedOver) {
    form.ParameterGrid().Select(1, 10);
    bench.AnswersEachFrame(frames::kRefused);
    bench.TypeAndEnter(u"200");
    bench.line.RunUntil(301);
    EXPECT_THAT(bench.Record(), HasSubstr("     注意： 1# 仪表的通讯出错"));
    EXPECT_EQ(bench.files.ErrorFile, "");
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_TRUE(form.Timer1[1].Enabled());
}

TEST_F(ErrorFileOfASession, StaysOpenBehindAStopByEditing) {
    bench.Start();
    Edit();
    EXPECT_FALSE(form.IsRunning());
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_FALSE(form.ClearFileCommand[0].Enabled());
    EXPECT_FALSE(form.ClearFileCommand[1].Enabled());
}

TEST_F(ErrorFileOfASession, GoesOnInASessionThatEnterStartsBehindAStopByEditing) {
    bench.Start();
    Edit();
    bench.AnswersEachFrame(frames::kRefused);
    bench.TypeAndEnter(u"200");
    bench.line.RunUntil(301);
    EXPECT_THAT(ErrorRecords(bench.files), HasSubstr("     注意： 1# 仪表的通讯出错        串口设置: "));
}

TEST_F(ErrorFileOfASession, IsNotOpenedTwiceByButton4BehindAStopByEditing) {
    bench.Start();
    Edit();
    bench.files.WriteToErrorFile("former record ");
    bench.Start();
    EXPECT_TRUE(form.IsRunning());
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_EQ(bench.files.ErrorFile, "former record ");
}

TEST_F(ErrorFileOfASession, IsClosedByButton4AlsoWhereEnterBeganTheSession) {
    form.ParameterGrid().Select(1, 10);
    bench.TypeAndEnter(u"200");
    bench.Stop();
    EXPECT_FALSE(form.IsRunning());
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_TRUE(form.ClearFileCommand[1].Enabled());
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(ErrorFileOfASession, IsClosedByAStartThatFindsThePortOccupied) {
    bench.line.Occupied = true;
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_EQ(bench.line.Time(), 300);
    EXPECT_FALSE(form.Timer1[1].Enabled());
}

TEST(ClearFileCommand_Click, EmptiesTheErrorFile) {
    FormBench bench;
    bench.files.ErrorFile = "records";
    ClearFileCommand_Click(bench.form, 0);
    EXPECT_EQ(bench.files.ErrorFile, "");
}

TEST(ClearFileCommand_Click, ShowsTheErrorFileOnlyWhileStopped) {
    for (const bool isRunning : {false, true}) {
        FormBench bench;
        bench.files.ErrorFile = "records";
        bench.form.RichTextBox2.PutOnTop({u"older view"});
        bench.form.SetRunning(isRunning);
        ClearFileCommand_Click(bench.form, 1);
        EXPECT_EQ(ToUtf8(bench.form.RichTextBox2.WholeText()), isRunning ? "older view" : "records");
        EXPECT_EQ(bench.files.ErrorFile, "records");
    }
}

TEST(ClearFileCommand_Click, SaysWhereOnlyTheEndOfTheErrorFileIsShown) {
    FormBench bench;
    bench.files.ErrorFile = "records";
    bench.files.ErrorFileIsLong = true;
    ClearFileCommand_Click(bench.form, 1);
    EXPECT_EQ(ToUtf8(bench.form.RichTextBox2.WholeText()), "records");
    EXPECT_EQ(bench.form.StatusNote.Value().kind, Notice::Kind::EndOfFile);
}

// --- The record ---

TEST(SaveRecord, NamesTheFileByTheMomentAndTheLaterOnesOfASecondByTheirTurn) {
    FormBench bench;
    bench.line.SetWallClock({2031, 12, 31, 23, 59, 8});
    for (const Text& block : {Text(u"one"), Text(u"two"), Text(u"three")}) {
        bench.form.ConCommString[1].Replace(block);
        SaveRecord(bench.form);
    }
    EXPECT_THAT(bench.files.SavedRecords,
                ElementsAre(std::pair(Text(u"自动保存通讯记录/记录311231235908.rtf"), Text(u"one")),
                            std::pair(Text(u"自动保存通讯记录/记录311231235908-2.rtf"), Text(u"two")),
                            std::pair(Text(u"自动保存通讯记录/记录311231235908-3.rtf"), Text(u"three"))));
}

TEST(SaveRecord, SavesTheNewestBlockFirst) {
    FormBench bench;
    bench.form.ConCommString[1].PutOnTop({u"older;"});
    bench.form.ConCommString[1].PutOnTop({u"newer;"});
    SaveRecord(bench.form);
    EXPECT_EQ(ToUtf8(bench.files.SavedRecords.at(0).second), "newer;older;");
}

TEST(SaveRecord, WithoutTheFolderRaisesError76) {
    FormBench bench;
    bench.files.HasRecordFolder = false;
    EXPECT_EQ(ErrorOf([&] { SaveRecord(bench.form); }), 76);
}

TEST(RecordOfASession, HasTheNewestExchangeOnTop) {
    NativeBench bench;
    bench.WillAnswer({frames::kDynamicReply, frames::kStaticReply});
    bench.Start();
    bench.line.RunUntil(402);
    EXPECT_EQ(bench.Record(),
              "第 2 次, 向 仪表甲 发送: @01RR01\\0D   收到: \r\n@01RRC800640078\\0D\r\n"
              "CRC校验正确       读取 1# 仪表的静态数据\r\n\r\n"
              "第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n@01RDC80064006E\\0D\r\n"
              "CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n");
}

TEST(ConCommString_Click, EmptiesTheRecordOnly) {
    FormBench bench;
    bench.form.ConCommString[0].PutOnTop({u"conversion"});
    bench.form.ConCommString[1].PutOnTop({u"record"});
    ConCommString_Click(bench.form, 0);
    EXPECT_EQ(ToUtf8(bench.form.ConCommString[0].WholeText()), "conversion");
    EXPECT_EQ(ToUtf8(bench.form.ConCommString[1].WholeText()), "record");
    ConCommString_Click(bench.form, 1);
    EXPECT_EQ(ToUtf8(bench.form.ConCommString[0].WholeText()), "conversion");
    EXPECT_EQ(ToUtf8(bench.form.ConCommString[1].WholeText()), "");
}

// --- The counters ---

TEST(ConCommMessage_DblClick, ZeroesTheFourCounters) {
    FormBench bench;
    bench.form.SendCount = 5;
    bench.form.IncompleteCount = 4;
    bench.form.CheckErrorCount = 3;
    bench.form.NoReplyCount = 2;
    bench.form.SearchFoundCount = 1;
    ConCommMessage_DblClick(bench.form);
    EXPECT_EQ(bench.form.SendCount, 0);
    EXPECT_EQ(bench.form.IncompleteCount, 0);
    EXPECT_EQ(bench.form.CheckErrorCount, 0);
    EXPECT_EQ(bench.form.NoReplyCount, 0);
    EXPECT_EQ(bench.form.SearchFoundCount, 1);
}

TEST(ConCommMessage_DblClick, WhilePollingTheFrameInFlightStillCounts) {
    NativeBench bench;
    bench.Start();
    bench.line.RunUntil(700);
    ConCommMessage_DblClick(bench.Form());
    bench.line.RunUntil(1500);
    EXPECT_EQ(bench.Form().SendCount, 0);
    EXPECT_EQ(bench.Form().NoReplyCount, 1);
    EXPECT_EQ(ToUtf8(bench.Form().ConCommMessage[0].Value()),
              "数据不完整 0 次;校验出错 0 次;无应答 1 次; 错误率 ");
}

// --- The layout of the two panes ---

struct Layout {
    std::int16_t before;
    int after;
    bool conversions;  // visible
    bool record;
};

TEST(ConShowCommand_Click, GoesThroughItsThreeLayoutsInTurn) {
    for (const Layout& row : {Layout{0, 1, true, true}, Layout{1, 2, true, false}, Layout{2, 0, false, true},
                              Layout{7, 0, false, true}}) {
        FormBench bench;
        bench.form.ShowTypeStep = row.before;
        ConShowCommand_Click(bench.form);
        EXPECT_EQ(bench.form.ShowTypeStep, row.after);
        EXPECT_EQ(bench.form.ConCommString[0].Visible(), row.conversions);
        EXPECT_EQ(bench.form.ConCommString[1].Visible(), row.record);
        EXPECT_EQ(ToUtf8(bench.settings.Values.at(u"ShowType")), std::to_string(row.after));
    }
}

}  // namespace
}  // namespace commtest
