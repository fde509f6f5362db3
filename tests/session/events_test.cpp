#include "session/events.h"
#include "host/store.h"
#include "runtime/runtime_error.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::HasSubstr;
using testing::NativeBench;
using testing::ShownBox;
using ::testing::SizeIs;
namespace frames = testing::frames;

class Events : public ::testing::Test {
  protected:
    FormBench bench;
    MainForm& form = bench.form;
};

struct Standard {
    int number;
    std::string message;
};

TEST_F(Events, RunTimeErrorIsShownWithItsNumberAndStandardMessage) {
    const Standard rows[] = {
        {13, "实时错误 '13':\r\n\r\n类型不匹配"},         {6, "实时错误 '6':\r\n\r\n溢出"},
        {5, "实时错误 '5':\r\n\r\n无效的过程调用或参数"}, {9, "实时错误 '9':\r\n\r\n下标越界"},
        {52, "实时错误 '52':\r\n\r\n文件名或文件号错误"}, {53, "实时错误 '53':\r\n\r\n文件未找到"},
        {76, "实时错误 '76':\r\n\r\n路径未找到"}};
    for (const Standard& row : rows) {
        bench.dialogs.Shown.clear();
        RunEvent(form, [&] { throw RuntimeError(row.number); });
        ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
        EXPECT_EQ(bench.dialogs.Shown[0].kind, ShownBox::Kind::Error);
        EXPECT_EQ(bench.dialogs.Shown[0].number, row.number);
        EXPECT_EQ(ToUtf8(bench.dialogs.Shown[0].text), row.message);
    }
}

TEST_F(Events, FailingStatementIsShownWithTheStoresText) {
    RunEvent(form, [&] { form.outside.store.Query(u"SELECT 1 FROM 没有"); });
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown[0].text), "数据库错误:\r\n\r\nno such table: 没有");
}

TEST_F(Events, ErrorEndsTheHandlerAndTheNextEventRuns) {
    bool reached = false;
    RunEvent(form, [&] {
        throw RuntimeError(RuntimeError::kOverflow);
        reached = true;
    });
    EXPECT_FALSE(reached);
    RunEvent(form, [&] { reached = true; });
    EXPECT_TRUE(reached);
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(1));
}

TEST_F(Events, EndOfTheProgramEndsTheHandlerAndIsShownToNobody) {
    bool reached = false;
    RunEvent(form, [&] {
        throw ProgramEnds();
        reached = true;
    });
    EXPECT_FALSE(reached);
    EXPECT_TRUE(bench.program.HasEnded);
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(0));
}

TEST_F(Events, NeitherAnErrorNorAQuietEventEndsTheProgram) {
    RunEvent(form, [] { throw RuntimeError(RuntimeError::kOverflow); });
    RunEvent(form, [] {});
    EXPECT_FALSE(bench.program.HasEnded);
}

TEST_F(Events, TickReachesItsOwnTimerOnly) {
    form.CycleStep = 4;
    TimerTicks(form, 0);
    EXPECT_EQ(form.CycleStep, 4);
    EXPECT_EQ(ToUtf8(form.StatusBar1[2].Value()), "2024年05月06日  12:00:00");
    form.StatusBar1[2].Set({});
    TimerTicks(form, 1);
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_EQ(ToUtf8(form.StatusBar1[2].Value()), "");
    form.IntervalLastRun = u"11:00";
    TimerTicks(form, 2);
    EXPECT_EQ(ToUtf8(form.IntervalLastRun), "12:00");
}

// --- A port that is gone ---

TEST(PortIsLost, EndsTheSessionAndTellsItOnceWithTheReason) {
    NativeBench bench;
    MainForm& form = bench.Form();
    bench.AnswersEachFrame(frames::kDynamicReply);
    bench.Start();
    bench.line.RunUntil(350);
    PortIsLost(form, u"COM1 拔出");
    EXPECT_FALSE(form.IsRunning());
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
    bench.line.RunUntil(60000);
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(bench.dialogs.Shown[0].notice, Notice::Kind::PortLost);
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown.front().detail), "COM1 拔出");
    EXPECT_THAT(bench.SentFrames(), SizeIs(1));
    EXPECT_THAT(bench.Record(), HasSubstr("第 1 次"));
}

TEST(PortIsLost, WhileStoppedStartsNothing) {
    FormBench bench;
    bench.line.SetPortOpen(true);
    PortIsLost(bench.form, u"reason");
    EXPECT_FALSE(bench.form.IsRunning());
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(1));
}

}  // namespace
}  // namespace commtest
