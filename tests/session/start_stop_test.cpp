#include "session/start_stop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/runtime_error.h"
#include "session/events.h"
#include "session/multi_instrument.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::FormBench;
using testing::NativeBench;
using ::testing::SizeIs;
namespace frames = testing::frames;

class StartStop : public ::testing::Test {
  protected:
    NativeBench bench;
    MainForm& form = bench.Form();
};

// --- The short way in ---

TEST_F(StartStop, ShortWayInMakesTheCycleReadyAndLeavesErrorFileAndSamples) {
    form.StaticSample = u" 40";
    StartInShortWay(form);
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_TRUE(form.PollTimer().Enabled());
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_TRUE(form.ClearFileCommand[0].Enabled());
    EXPECT_EQ(ToUtf8(form.StaticSample), " 40");
}

TEST_F(StartStop, ShortWayIntoARunningSessionLeavesTheStepOfTheCycle) {
    bench.Start();
    form.CycleStep = 3;
    StartInShortWay(form);
    EXPECT_EQ(form.CycleStep, 3);
}

// --- The short way out ---

TEST_F(StartStop, ShortWayOutIdlesTheCycleAndLeavesTheErrorFileOpen) {
    bench.Start();
    bench.line.RunUntil(300);
    StopInShortWay(form, StopCause::Editor);
    EXPECT_EQ(ToUtf8(form.StartStopCaption()), "开始通讯");
    EXPECT_EQ(form.CycleStep, 0);
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_FALSE(form.ClearFileCommand[0].Enabled());
    EXPECT_FALSE(form.ClearFileCommand[1].Enabled());
}

TEST_F(StartStop, ShortWayOutLeavesThePortToTheNextTick) {
    bench.Start();
    bench.line.RunUntil(300);
    StopInShortWay(form, StopCause::Editor);
    EXPECT_TRUE(bench.line.PortOpen());
    EXPECT_TRUE(form.PollTimer().Enabled());
    bench.line.RunUntil(600);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_FALSE(form.PollTimer().Enabled());
    EXPECT_THAT(bench.SentFrames(), SizeIs(1));
}

TEST_F(StartStop, ShortWayOutOfAStoppedSessionLeavesTheStepOfTheCycle) {
    form.CycleStep = 3;
    StopInShortWay(form, StopCause::Editor);
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(form.LastStop().cause, StopCause::None);
}

// --- Why it stopped ---

class LastStop : public StartStop {
  protected:
    void ExpectStop(StopCause cause, std::int32_t exchange) {
        EXPECT_EQ(form.LastStop().cause, cause);
        EXPECT_EQ(form.LastStop().exchange, exchange);
        EXPECT_EQ(form.LastStop().outcome, nullptr);
    }
};

TEST_F(LastStop, IsNoneBeforeTheFirst) {
    ExpectStop(StopCause::None, 0);
    bench.Start();
    ExpectStop(StopCause::None, 0);
}

TEST_F(LastStop, IsThatOfTheUserWithTheFramesSentByThen) {
    bench.AnswersEachFrame(frames::kDynamicReply);
    bench.Start();
    bench.line.RunUntil(450);
    bench.Stop();
    ExpectStop(StopCause::User, 2);
}

TEST_F(LastStop, StandsWhileTheNextSessionRuns) {
    bench.Start();
    bench.Stop();
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_EQ(form.SendCount, 1);
    ExpectStop(StopCause::User, 0);
}

TEST_F(LastStop, IsThatOfTheCellEditor) {
    bench.Start();
    bench.line.RunUntil(300);
    bench.Click(1, 10);
    ExpectStop(StopCause::Editor, 1);
}

TEST_F(LastStop, IsThatOfTheQuestionsForSeveralInstruments) {
    bench.dialogs.Answers = {u"1", u"5"};
    bench.Start();
    bench.line.RunUntil(300);
    Happen(bench, [](MainForm& f) { f.Check1.Set(true); });
    EXPECT_TRUE(form.IsRunning());
    ExpectStop(StopCause::Questions, 1);
}

TEST_F(LastStop, IsThatOfTheIntervalTimerThatTogglesARunningSession) {
    bench.dialogs.Answers = {u"1"};
    bench.AnswersEachFrame(frames::kDynamicReply);
    Happen(bench, [](MainForm& f) { f.TimeSetup.Set(true); });
    EXPECT_TRUE(form.IsRunning());
    ExpectStop(StopCause::None, 0);
    bench.line.RunUntil(60000);
    EXPECT_TRUE(form.IsRunning());
    bench.line.RunUntil(61000);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(form.LastStop().cause, StopCause::Interval);
    EXPECT_EQ(form.LastStop().exchange, form.SendCount);
}

TEST_F(LastStop, OfAPortThatIsRefusedTellsWhy) {
    bench.line.Occupied = true;
    bench.line.Problem = u"另一个程序正在使用";
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_FALSE(form.IsRunning());
    ExpectStop(StopCause::PortRefused, 1);
    EXPECT_EQ(ToUtf8(form.LastStop().detail), "另一个程序正在使用");
}

TEST_F(LastStop, OfAPortThatIsLostTellsWhy) {
    bench.Start();
    bench.line.RunUntil(300);
    PortIsLost(form, u"设备已断开");
    EXPECT_FALSE(form.IsRunning());
    ExpectStop(StopCause::PortLost, 1);
    EXPECT_EQ(ToUtf8(form.LastStop().detail), "设备已断开");
}

TEST_F(LastStop, IsNotThatOfAPortThatIsLostWhileStopped) {
    PortIsLost(form, u"设备已断开");
    EXPECT_EQ(form.LastStop().cause, StopCause::None);
    EXPECT_FALSE(form.IsRunning());
}

// The caption stays, but nothing more is sent.
TEST_F(LastStop, OfARunTimeErrorThatEndsThePollingHasItsNumberAndMessage) {
    form.CommandCode = 60;
    form.ConDataNub.Set(u"多");
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_FALSE(form.PollTimer().Enabled());
    EXPECT_TRUE(form.IsRunning());
    ExpectStop(StopCause::RuntimeError, 0);
    EXPECT_EQ(form.LastStop().error, 13);
    EXPECT_EQ(ToUtf8(form.LastStop().detail), "实时错误 '13':\r\n\r\n类型不匹配");
}

TEST_F(LastStop, IsNotThatOfARunTimeErrorBesideThePolling) {
    bench.Start();
    Happen(bench, [](MainForm&) { throw RuntimeError(RuntimeError::kTypeMismatch); });
    EXPECT_TRUE(form.PollTimer().Enabled());
    ExpectStop(StopCause::None, 0);
}

TEST_F(LastStop, IsThatOfASearchThatIsOver) {
    FormBench each;
    each.companions.SearchGoesOn = false;
    each.form.CommandCode = 1031;
    StartOrStop(each.form, {StopCause::User});
    each.line.RunUntil(300);
    EXPECT_FALSE(each.form.IsRunning());
    EXPECT_EQ(each.form.LastStop().cause, StopCause::SearchOver);
}

}  // namespace
}  // namespace commtest
