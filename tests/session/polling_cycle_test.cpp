#include "session/polling_cycle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/operation_menus.h"
#include "session/events.h"
#include "session/grid_editing.h"
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
using ::testing::SizeIs;
namespace frames = testing::frames;

class PollingCycle : public ::testing::Test {
  protected:
    std::vector<std::int64_t> SendTimes() const {
        std::vector<std::int64_t> times;
        for (const auto& frame : bench.line.Frames()) times.push_back(frame.time);
        return times;
    }

    NativeBench bench;
    MainForm& form = bench.Form();
};

// --- The start ---

TEST_F(PollingCycle, NewFormIsStoppedAndIdleAndSetToAlternatingReads) {
    const FormBench fresh;
    EXPECT_EQ(fresh.form.CommandCode, 31);
    EXPECT_EQ(fresh.form.CycleStep, 0);
    EXPECT_FALSE(fresh.form.IsRunning());
    EXPECT_EQ(ToUtf8(fresh.form.StartStopCaption()), "开始通讯");
}

TEST_F(PollingCycle, TimersBeginAsDesigned) {
    const FormBench fresh;
    const auto& timers = fresh.form.Timer1;
    EXPECT_TRUE(timers[0].Enabled());
    EXPECT_EQ(timers[0].Interval(), 1000);
    EXPECT_FALSE(timers[1].Enabled());
    EXPECT_EQ(timers[1].Interval(), 300);
    EXPECT_FALSE(timers[2].Enabled());
    EXPECT_EQ(timers[2].Interval(), 1000);
}

TEST_F(PollingCycle, FirstFrameLeavesWithTheFirstTickBehindTheStart) {
    bench.Start();
    bench.line.RunUntil(299);
    EXPECT_THAT(bench.SentFrames(), IsEmpty());
    bench.line.RunUntil(300);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kReadDynamic));
}

TEST_F(PollingCycle, CaptionTellsWhetherTheSessionRuns) {
    bench.Start();
    EXPECT_EQ(ToUtf8(form.StartStopCaption()), "停止通讯");
    bench.Stop();
    EXPECT_EQ(ToUtf8(form.StartStopCaption()), "开始通讯");
}

// --- The end of a reply ---

TEST_F(PollingCycle, NextFrameFollowsTheReplyByTheCommunicationInterval) {
    form.ConDelayTime.Set(u"100");
    bench.AnswersEachFrame(frames::kDynamicReply, 7);
    bench.Start();
    bench.line.RunUntil(407);
    EXPECT_THAT(SendTimes(), ElementsAre(300, 407));
}

TEST_F(PollingCycle, CommunicationIntervalIsReadOnEveryUse) {
    bench.AnswersEachFrame(frames::kDynamicReply);
    bench.Start();
    bench.line.RunUntil(300);
    form.ConDelayTime.Set(u"50");
    bench.line.RunUntil(351);
    form.ConDelayTime.Set(u"20");
    bench.line.RunUntil(372);
    EXPECT_THAT(SendTimes(), ElementsAre(300, 351, 372));
}

TEST_F(PollingCycle, CommunicationIntervalOfZeroSendsAsSoonAsThePumpIsFree) {
    form.ConDelayTime.Set(u"0");
    bench.AnswersEachFrame(frames::kDynamicReply, 5);
    bench.Start();
    bench.line.RunUntil(310);
    EXPECT_THAT(SendTimes(), ElementsAre(300, 305, 310));
}

TEST_F(PollingCycle, CompleteReplyMovesTheCycleBackToReady) {
    bench.AnswersEachFrame(frames::kDynamicReply);
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_EQ(form.CycleStep, 2);
    bench.line.RunUntil(301);
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_EQ(form.Timer1[1].Interval(), 100);
}

TEST_F(PollingCycle, BytesWithoutAnEndMoveTheCycleToStepThreeAndLeaveTheInterval) {
    bench.AnswersEachFrame("40 30 31");
    bench.Start();
    bench.line.RunUntil(301);
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_EQ(form.Timer1[1].Interval(), 300);
}

// --- The wait ---

TEST_F(PollingCycle, SilentInstrumentIsGivenUpOnAtTheFourthTick) {
    bench.Start();
    bench.line.RunUntil(1499);
    EXPECT_EQ(form.NoReplyCount, 0);
    EXPECT_EQ(form.WaitTicks, 3);
    bench.line.RunUntil(1500);
    EXPECT_EQ(form.NoReplyCount, 1);
    EXPECT_EQ(form.CycleStep, 1);
}

TEST_F(PollingCycle, FrameBehindATimeOutFollowsByTheCommunicationInterval) {
    bench.Start();
    bench.line.RunUntil(1600);
    EXPECT_THAT(SendTimes(), ElementsAre(300, 1600));
}

TEST_F(PollingCycle, SilentInstrumentCountsOneFailureAFrame) {
    bench.Start();
    bench.line.RunUntil(300 + 10 * 1300);
    EXPECT_THAT(bench.SentFrames(), SizeIs(11));
    EXPECT_EQ(form.NoReplyCount, 10);
    EXPECT_EQ(form.IncompleteCount, 0);
}

TEST_F(PollingCycle, FiveChunksWithoutAnEndLastNineTicksAndCountOneIncompleteReply) {
    bench.line.Answer = [](const std::string&) {
        return std::vector<testing::Arrival>{{10, "@0"}, {20, "1R"}, {30, "D0"}, {40, "0C"}, {50, "80"}};
    };
    bench.Start();
    bench.line.RunUntil(350 + 9 * 300 - 1);
    EXPECT_EQ(form.WaitTicks, 8);
    EXPECT_EQ(form.IncompleteCount, 0);
    bench.line.RunUntil(350 + 9 * 300);
    EXPECT_EQ(form.IncompleteCount, 1);
    EXPECT_EQ(form.NoReplyCount, 0);
}

TEST_F(PollingCycle, ChunkOfOneByteDoesNotExtendTheWait) {
    bench.AnswersEachFrame("40", 10);
    bench.Start();
    bench.line.RunUntil(310 + 4 * 300 - 1);
    EXPECT_EQ(form.IncompleteCount, 0);
    bench.line.RunUntil(310 + 4 * 300);
    EXPECT_EQ(form.IncompleteCount, 1);
}

TEST_F(PollingCycle, ChunkOfTwoBytesExtendsTheWaitByOneTick) {
    bench.AnswersEachFrame("40 30", 10);
    bench.Start();
    bench.line.RunUntil(310 + 5 * 300 - 1);
    EXPECT_EQ(form.IncompleteCount, 0);
    bench.line.RunUntil(310 + 5 * 300);
    EXPECT_EQ(form.IncompleteCount, 1);
}

TEST_F(PollingCycle, BytesThatArriveDoNotStartTheCountOfTicksAnew) {
    bench.Start();
    bench.ArrivesAt(1300, "40");  // behind the third tick
    bench.line.RunUntil(1599);
    EXPECT_EQ(form.WaitTicks, 3);
    bench.line.RunUntil(1600);
    EXPECT_EQ(form.IncompleteCount, 1);
}

TEST_F(PollingCycle, SendStepBeginsTheWaitAnew) {
    form.WaitTicks = 3;
    form.PartialReplyLength = 9;
    form.RxEventCount = 2;
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_EQ(form.WaitTicks, 0);
    EXPECT_EQ(form.PartialReplyLength, 0);
    EXPECT_EQ(form.RxEventCount, 0);
    EXPECT_EQ(form.CycleStep, 2);
    EXPECT_EQ(form.ReplyTimeout, 300);
    EXPECT_EQ(form.Timer1[1].Interval(), 300);
}

struct Routing {
    std::int32_t commandCode;
    std::int32_t noReplies;
    std::int32_t interval;  // behind the tick
};

TEST_F(PollingCycle, TimeOutIsRoutedOnlyBelowCommandCode1000) {
    for (const Routing& expected : {Routing{31, 1, 100}, Routing{999, 1, 100}, Routing{1000, 0, 300},
                                    Routing{1031, 0, 300}, Routing{10031, 0, 300}}) {
        SCOPED_TRACE(expected.commandCode);
        NativeBench each;
        each.Form().CommandCode = expected.commandCode;
        each.Form().CycleStep = 2;
        each.Form().WaitTicks = 3;
        TimerTicks(each.Form(), 1);
        EXPECT_EQ(each.Form().NoReplyCount, expected.noReplies);
        EXPECT_EQ(each.Form().Timer1[1].Interval(), expected.interval);
        EXPECT_EQ(each.Form().CycleStep, 1);
    }
}

TEST_F(PollingCycle, LateBytesWhileReadyToSendAreJudgedWithTheOldWait) {
    bench.Start();
    bench.ArrivesAt(1550, "40 30");  // given up on at 1500, next frame due at 1600
    bench.line.RunUntil(1550);
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_EQ(form.WaitTicks, 4);
    bench.line.RunUntil(1650);
    EXPECT_EQ(form.IncompleteCount, 1);
    bench.line.RunUntil(1750);
    EXPECT_THAT(SendTimes(), ElementsAre(300, 1750));
}

// --- The length of a tick ---

struct TickLength {
    Text baud;
    int whileWaiting;  // never below 300
    int whileIdle;     // half to even, no floor
};

const TickLength kTickLengths[] = {{u"300", 500, 500}, {u"250", 600, 600},   {u"500", 300, 300},
                                   {u"600", 300, 250}, {u"1200 ", 300, 125}, {u"2400", 300, 62},
                                   {u"4800", 300, 31}, {u"9600", 300, 16},   {u" 19200 ", 300, 8},
                                   {u"57600", 300, 3}, {u"300.9", 500, 500}, {u"100000", 300, 2}};

TEST_F(PollingCycle, WaitingTickFollowsTheBaudRateDownTo300Milliseconds) {
    for (const TickLength& row : kTickLengths) {
        SCOPED_TRACE(ToUtf8(row.baud));
        NativeBench each;
        each.Form().ConCommSetting[1].Set(row.baud);
        each.Start();
        each.line.RunUntil(300);
        EXPECT_EQ(each.Form().ReplyTimeout, row.whileWaiting);
        EXPECT_EQ(each.Form().Timer1[1].Interval(), row.whileWaiting);
    }
}

TEST_F(PollingCycle, IdleTickFollowsTheBaudRateWithoutAFloor) {
    for (const TickLength& row : kTickLengths) {
        SCOPED_TRACE(ToUtf8(row.baud));
        FormBench each;
        each.form.ConCommSetting[1].Set(row.baud);
        each.form.WaitTicks = 7;
        TimerTicks(each.form, 1);
        EXPECT_EQ(each.form.Timer1[1].Interval(), row.whileIdle);
        EXPECT_EQ(each.form.WaitTicks, 0);
        EXPECT_EQ(each.form.CycleStep, 0);
    }
}

TEST_F(PollingCycle, BaudRateThatGivesNoTickLengthEndsTheTickWithItsTimerOff) {
    for (const Text& baud : {Text(u"快"), Text(u""), Text(u"0"), Text(u"0.5"), Text(u"4")}) {
        SCOPED_TRACE(ToUtf8(baud));
        NativeBench each;
        each.Form().ConCommSetting[1].Set(baud);
        each.Start();
        each.line.RunUntil(2000);
        ASSERT_THAT(each.dialogs.Shown, SizeIs(1));
        EXPECT_EQ(each.dialogs.Shown[0].kind, testing::ShownBox::Kind::Error);
        EXPECT_THAT(each.SentFrames(), IsEmpty());
        EXPECT_FALSE(each.Form().Timer1[1].Enabled());
        EXPECT_TRUE(each.Form().IsRunning());
    }
}

// --- The other steps ---

TEST_F(PollingCycle, StepFourTakesTheCommunicationIntervalAndIsReady) {
    form.SetRunning(true);
    form.CycleStep = 4;
    form.ConDelayTime.Set(u"70");
    TimerTicks(form, 1);
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_EQ(form.Timer1[1].Interval(), 70);
    EXPECT_THAT(bench.SentFrames(), IsEmpty());
}

TEST_F(PollingCycle, StepFiveDoesNothingAndTheTimerGoesOn) {
    form.SetRunning(true);
    form.CycleStep = 5;
    form.WaitTicks = 2;
    TimerTicks(form, 1);
    EXPECT_EQ(form.CycleStep, 5);
    EXPECT_EQ(form.WaitTicks, 2);
    EXPECT_EQ(form.Timer1[1].Interval(), 300);
    EXPECT_TRUE(form.Timer1[1].Enabled());
    EXPECT_THAT(bench.SentFrames(), IsEmpty());
}

TEST_F(PollingCycle, StepSixSendsAsStepOne) {
    form.SetRunning(true);
    form.CycleStep = 6;
    TimerTicks(form, 1);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kReadDynamic));
    EXPECT_EQ(form.CycleStep, 2);
}

TEST_F(PollingCycle, StepSevenGoesOnWaitingWithoutAFrame) {
    form.SetRunning(true);
    form.CycleStep = 7;
    form.WaitTicks = 4;
    form.PartialReplyLength = 12;
    form.Timer1[1].SetInterval(100);
    TimerTicks(form, 1);
    EXPECT_THAT(bench.SentFrames(), IsEmpty());
    EXPECT_EQ(form.CycleStep, 2);
    EXPECT_EQ(form.WaitTicks, 0);
    EXPECT_EQ(form.PartialReplyLength, 0);
    EXPECT_EQ(form.Timer1[1].Interval(), 300);
}

// --- Answers in several parts ---

TEST_F(PollingCycle, PartOfAnAnswerIsFollowedByTheContinueByteAtOnce) {
    bench.WillAnswer({frames::kDynamicPart, frames::kDynamicLastPart});
    bench.Start();
    bench.line.RunUntil(302);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kReadDynamic, frames::kContinue));
    EXPECT_EQ(SendTimes()[1], 301);
    EXPECT_EQ(form.CheckErrorCount, 0);
}

TEST_F(PollingCycle, SilenceBehindTheContinueByteIsGivenUpOnAtTheFifthTick) {
    bench.WillAnswer({frames::kDynamicPart});
    bench.Start();
    bench.line.RunUntil(301);
    EXPECT_EQ(form.CycleStep, 7);
    bench.line.RunUntil(401);  // the tick of the communication interval
    EXPECT_EQ(form.CycleStep, 2);
    bench.line.RunUntil(401 + 4 * 300 - 1);
    EXPECT_EQ(form.NoReplyCount, 0);
    bench.line.RunUntil(401 + 4 * 300);
    EXPECT_EQ(form.NoReplyCount, 1);
    EXPECT_THAT(bench.SentFrames(), SizeIs(2));
}

// --- The stop ---

TEST_F(PollingCycle, StopLetsOneMoreTickRunThatClosesThePort) {
    bench.Start();
    bench.line.RunUntil(350);
    bench.Stop();
    bench.line.RunUntil(599);
    EXPECT_TRUE(bench.line.PortOpen());
    EXPECT_TRUE(form.Timer1[1].Enabled());
    bench.line.RunUntil(600);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
    bench.line.RunUntil(5000);
    EXPECT_THAT(bench.SentFrames(), SizeIs(1));
}

TEST_F(PollingCycle, TickOfAStoppedSessionShowsThePortStatusAlsoOfAClosedPort) {
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "    欢迎使用本软件");
    TimerTicks(form, 1);
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
}

TEST_F(PollingCycle, LateByteBehindAStopMovesTheStepAndEnablesTheTickAgain) {
    bench.Start();
    bench.line.RunUntil(350);
    bench.Stop();
    bench.ArrivesAt(400, "40 30");
    bench.line.RunUntil(400);
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_TRUE(form.Timer1[1].Enabled());
    bench.line.RunUntil(699);
    EXPECT_TRUE(bench.line.PortOpen());
    bench.line.RunUntil(700);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_EQ(form.WaitTicks, 1);
}

TEST_F(PollingCycle, LateReplyBehindAStopMakesTheLastTickBuildAFrameThatDoesNotLeave) {
    bench.Start();
    bench.line.RunUntil(350);
    bench.Stop();
    bench.ArrivesAt(400, frames::kDynamicReply);
    bench.line.RunUntil(500);
    EXPECT_EQ(form.CommandCode, 31);  // 32 behind the first frame, 31 behind the one that was built
    EXPECT_EQ(form.SendCount, 1);
    EXPECT_THAT(bench.SentFrames(), SizeIs(1));
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_FALSE(form.Timer1[1].Enabled());
}

// --- What changes while the session runs ---

TEST_F(PollingCycle, MenuEntryChosenWhileRunningTakesEffectAtTheNextFrame) {
    bench.AnswersEachFrame(frames::kDynamicReply);
    bench.Start();
    bench.line.RunUntil(350);
    ChooseMenuEntry(form, 1, 2);
    bench.line.RunUntil(401);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kReadDynamic, frames::kReadStatic));
    EXPECT_EQ(form.CommandCode, 20);
}

TEST_F(PollingCycle, AlternatingReadsSendDynamicAndStaticInTurn) {
    bench.AnswersEachFrame(frames::kTaken);
    bench.Start();
    bench.line.RunUntil(600);
    EXPECT_THAT(bench.SentFrames(),
                ElementsAre(frames::kReadDynamic, frames::kReadStatic, frames::kReadDynamic));
}

// --- Errors within a tick ---

TEST_F(PollingCycle, CounterThatOverflowsEndsTheTickAndLeavesTheTimerOffAndTheCaption) {
    form.SetRunning(true);
    form.CycleStep = 2;
    form.WaitTicks = 32767;
    form.Timer1[1].SetEnabled(true);
    TimerTicks(form, 1);
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(bench.dialogs.Shown[0].number, 6);
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_TRUE(form.IsRunning());
}

TEST_F(PollingCycle, StatisticsThatOverflowEndTheTickBeforeTheCycleIsReady) {
    form.SetRunning(true);
    form.CycleStep = 2;
    form.WaitTicks = 3;
    form.SendCount = 1;
    form.IncompleteCount = 21474837;
    TimerTicks(form, 1);
    EXPECT_EQ(bench.dialogs.Shown.at(0).number, 6);
    EXPECT_FALSE(form.Timer1[1].Enabled());
}

TEST_F(PollingCycle, TickIsOffWhileAMessageOfItStands) {
    form.CommandCode = 131;
    form.SendText = u" 4G";
    bench.Start();
    bool isOn = true;
    bench.dialogs.Time = [&] {
        isOn = form.Timer1[1].Enabled();
        return bench.line.Time();
    };
    bench.line.RunUntil(300);
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_FALSE(isOn);
    EXPECT_TRUE(form.Timer1[1].Enabled());
}

// --- The protocol's routines ---

TEST_F(PollingCycle, TimerIsOffWhileTheTickRuns) {
    std::vector<bool> states;
    bench.line.Answer = [&](const std::string&) {
        states.push_back(form.PollTimer().Enabled());
        return std::vector<testing::Arrival>();
    };
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_THAT(states, ElementsAre(false));
    EXPECT_TRUE(form.PollTimer().Enabled());
}

TEST_F(PollingCycle, CodeWithoutARowReadsWithTheDefaultRow) {
    ProtocolTable table;
    table.defaultRow.buildRead = [](Conversation& talk, Clock&) { talk.SendText = u" 2A"; };
    FormBench each(table);
    each.form.ProtocolCode = 99;
    BuildReadRequest(each.form);
    EXPECT_EQ(ToUtf8(each.form.SendText), " 2A");
}

TEST_F(PollingCycle, ProtocolWithoutAnEndRuleTimesOutAtEachFrameAndCountsNothing) {
    Protocol requestsOnly;
    requestsOnly.code = 23;
    ProtocolTable table;
    table.rows = {requestsOnly};
    FormBench each(table);
    each.form.ProtocolCode = 23;
    each.form.MeterCodeText = u"2300";
    each.form.SendText = u" 01";  // nothing builds a frame here
    each.line.Answer = [](const std::string&) { return std::vector<testing::Arrival>{{1, "\x0A\x0D"}}; };
    each.form.SetRunning(true);
    each.form.CycleStep = 1;
    each.form.Timer1[1].SetEnabled(true);
    each.line.RunUntil(300 + 1 + 5 * 300 + 300);
    EXPECT_EQ(each.line.Frames().size(), 2u);
    EXPECT_EQ(each.form.IncompleteCount + each.form.NoReplyCount + each.form.CheckErrorCount, 0);
    EXPECT_EQ(ToUtf8(each.form.ReplyText), " 0A 0D");
    EXPECT_EQ(ToUtf8(each.form.ConCommMessage[0].Value()),
              "数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %");
}

// --- Search ---

struct SearchTick {
    std::int32_t commandCode;
    std::int16_t step;
    bool asks;
};

TEST_F(PollingCycle, SearchStepRunsAtStepOneWithCommandCodes1001To9999) {
    for (const SearchTick& row :
         {SearchTick{1000, 1, false}, SearchTick{1001, 1, true}, SearchTick{9999, 1, true},
          SearchTick{10000, 1, false}, SearchTick{1001, 6, false}}) {
        SCOPED_TRACE(row.commandCode);
        FormBench each;
        each.form.SetRunning(true);
        each.form.CommandCode = row.commandCode;
        each.form.CycleStep = row.step;
        TimerTicks(each.form, 1);
        EXPECT_EQ(each.companions.Calls.size(), row.asks ? 1u : 0u);
        EXPECT_EQ(each.line.Frames().size(), 1u);
    }
}

TEST_F(PollingCycle, EndOfASearchStopsTheSessionAndLeavesTheTickAtOnce) {
    FormBench each;
    each.companions.SearchGoesOn = false;
    each.line.SetPortOpen(true);
    each.form.SetRunning(true);
    each.form.CommandCode = 1031;
    each.form.CycleStep = 1;
    each.form.Timer1[1].SetEnabled(true);
    TimerTicks(each.form, 1);
    EXPECT_FALSE(each.form.IsRunning());
    EXPECT_FALSE(each.form.Timer1[1].Enabled());
    EXPECT_TRUE(each.line.PortOpen());
    EXPECT_THAT(each.line.Frames(), IsEmpty());
}

TEST_F(PollingCycle, EndOfASearchWhileStoppedStartsTheSession) {
    FormBench each;
    each.companions.SearchGoesOn = false;
    each.form.CommandCode = 1031;
    each.form.CycleStep = 1;
    TimerTicks(each.form, 1);
    EXPECT_TRUE(each.form.IsRunning());
}

// --- Building a read ---

TEST_F(PollingCycle, ReplayFramesAreTakenInTurnAndWrapBehindTheLast) {
    form.CommandCode = 10031;
    form.DemoFrames = {u" 40 30 31 41", u" 40 30 32 42", u" 40 30 33 43"};
    form.DemoIndex = 2;
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.SendText), " 40 30 33 43");
    EXPECT_EQ(form.DemoIndex, 2);  // the sending moves it on
    form.DemoIndex = 3;
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.SendText), " 40 30 31 41");
    EXPECT_EQ(form.DemoIndex, 0);
}

TEST_F(PollingCycle, ReplayShowsTheAddressOfTheFrame) {
    form.CommandCode = 10001;
    form.DemoFrames = {u" 40 30 41 52 44 36 37 0D"};
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "10");
}

TEST_F(PollingCycle, ReplayBeginsAboveCommandCode10000) {
    form.CommandCode = 10000;
    form.DemoFrames = {u" 55"};
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.SendText), " 40 30 31 52 44 31 37 0D");
    form.CommandCode = 10001;
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.SendText), " 55");
}

TEST_F(PollingCycle, ReplayWithoutAScriptRaisesError9) {
    form.CommandCode = 10031;
    EXPECT_EQ(ErrorOf([&] { BuildReadRequest(form); }), 9);
}

TEST_F(PollingCycle, ReplayTakesNoAddressOfTheMultiInstrumentList) {
    bench.dialogs.Answers = {u"2", u"5", u"6"};
    form.Check1.Set(true);
    form.CommandCode = 10031;
    form.DemoFrames = {u" 55"};
    BuildReadRequest(form);
    EXPECT_EQ(form.MultiAddressIndex, 0);
}

// --- Building a write ---

TEST_F(PollingCycle, WriteIsReadyInSendTextWithHundredOnTheCommandCode) {
    form.ParameterGrid().Select(1, 10);
    form.InputText.Set(u"200");
    BuildWriteRequest(form);
    EXPECT_EQ(ToUtf8(form.SendText), " 40 30 31 57 32 30 31 32 33 43 38 30 30 31 46 0D");
    EXPECT_EQ(form.CommandCode, 131);
}

TEST_F(PollingCycle, WriteStartsAStoppedSessionInTheShortWay) {
    form.ParameterGrid().Select(1, 10);
    form.InputText.Set(u"200");
    form.StaticSample = u" 40";
    BuildWriteRequest(form);
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_TRUE(form.Timer1[1].Enabled());
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_TRUE(form.ClearFileCommand[0].Enabled());
    EXPECT_TRUE(form.ClearFileCommand[1].Enabled());
    EXPECT_EQ(ToUtf8(form.StaticSample), " 40");
}

TEST_F(PollingCycle, WriteWhileRunningLeavesTheStepOfTheCycle) {
    bench.Start();
    bench.line.RunUntil(300);
    form.ParameterGrid().Select(1, 10);
    form.InputText.Set(u"200");
    BuildWriteRequest(form);
    EXPECT_EQ(form.CycleStep, 2);
    EXPECT_EQ(form.CommandCode, 132);
}

TEST_F(PollingCycle, WriteGoesOutOnceInPlaceOfAReadThatThenGoesOn) {
    form.ParameterGrid().Select(1, 10);
    form.CommandCode = 10;
    bench.AnswersEachFrame(frames::kTaken);
    bench.TypeAndEnter(u"200");
    bench.line.RunUntil(502);
    EXPECT_THAT(bench.SentFrames(),
                ElementsAre(frames::kWriteFirstRow, frames::kReadDynamic, frames::kReadDynamic));
    EXPECT_EQ(form.CommandCode, 10);
}

TEST_F(PollingCycle, TwoEntersSendTheWriteTwice) {
    form.ParameterGrid().Select(1, 10);
    bench.AnswersEachFrame(frames::kTaken);
    bench.TypeAndEnter(u"200");
    bench.TypeAndEnter(u"200");
    EXPECT_EQ(form.CommandCode, 231);
    bench.line.RunUntil(300);
    EXPECT_EQ(form.CommandCode, 131);
    bench.line.RunUntil(401);
    EXPECT_EQ(form.CommandCode, 31);
    bench.line.RunUntil(502);
    EXPECT_THAT(bench.SentFrames(),
                ElementsAre(frames::kWriteFirstRow, frames::kWriteFirstRow, frames::kReadDynamic));
}

TEST_F(PollingCycle, ProtocolWithoutAWriteAddsTheHundredAndSendsWhatStandsInSendText) {
    form.ProtocolCode = 13;
    form.MeterCodeText = u"1301";
    form.SendText = u" 40 41 0D";
    BuildWriteRequest(form);
    EXPECT_EQ(form.CommandCode, 131);
    EXPECT_EQ(ToUtf8(form.SendText), " 40 41 0D");
    bench.line.RunUntil(300);
    EXPECT_THAT(bench.SentFrames(), ElementsAre("40 41 30 30 0D"));
    EXPECT_EQ(form.CommandCode, 31);
}

TEST_F(PollingCycle, WriteThatCannotBeBuiltAddsNothingAndStartsNothing) {
    form.ParameterGrid().Select(1, 10);
    form.InputText.Set(u"很大");
    EXPECT_EQ(ErrorOf([&] { BuildWriteRequest(form); }), 13);
    EXPECT_EQ(form.CommandCode, 31);
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(PollingCycle, HundredThatOverflowsTheCommandCodeStartsNothing) {
    FormBench each;
    each.form.CommandCode = 2147483600;
    EXPECT_EQ(ErrorOf([&] { BuildWriteRequest(each.form); }), 6);
    EXPECT_FALSE(each.form.IsRunning());
}

// --- Timer 0 ---

TEST_F(PollingCycle, ClockPanelIsWrittenEachSecond) {
    bench.line.SetWallClock({2024, 5, 6, 12, 0, 0});
    bench.line.RunUntil(999);
    EXPECT_EQ(ToUtf8(form.StatusBar1[2].Value()), "");
    bench.line.RunUntil(1000);
    EXPECT_EQ(ToUtf8(form.StatusBar1[2].Value()), "2024年05月06日  12:00:01");
    bench.line.RunUntil(2999);
    EXPECT_EQ(ToUtf8(form.StatusBar1[2].Value()), "2024年05月06日  12:00:02");
}

TEST_F(PollingCycle, IndicatorBlinksEachSecondWhileTheCycleIsEnabled) {
    EXPECT_TRUE(form.ComShow.Visible());
    bench.Start();
    bench.line.RunUntil(1000);
    EXPECT_FALSE(form.ComShow.Visible());
    bench.line.RunUntil(2000);
    EXPECT_TRUE(form.ComShow.Visible());
}

TEST_F(PollingCycle, IndicatorRestsWhileTheCycleIsDisabled) {
    bench.line.RunUntil(5000);
    EXPECT_TRUE(form.ComShow.Visible());
}

}  // namespace
}  // namespace commtest
