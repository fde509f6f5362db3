#include "session/interval_timer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::FormBench;
using testing::Happen;
using testing::NativeBench;
using ::testing::SizeIs;

class IntervalTimer : public ::testing::Test {
  protected:
    void Tick(const Text& minutes) {
        bench.dialogs.Answers = {minutes};
        Happen(bench, [](MainForm& f) { f.TimeSetup.Set(true); });
    }

    NativeBench bench;
    MainForm& form = bench.Form();
};

// --- The box ---

TEST_F(IntervalTimer, AsksForTheMinutesAndProposesOne) {
    form.IntervalMinutes = 30;
    Tick(u"5");
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown[0].title), "时间间隔");
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown[0].text), "请输入时间间隔,单位为 分钟 ");
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown[0].proposal), "1");
    EXPECT_EQ(form.IntervalMinutes, 5);
}

TEST_F(IntervalTimer, NotesTheMinuteOfTheDayAndStartsItsTimer) {
    bench.line.SetWallClock({2024, 5, 6, 9, 7, 59});
    Tick(u"5");
    EXPECT_EQ(ToUtf8(form.IntervalLastRun), "09:07");
    EXPECT_TRUE(form.Timer1[2].Enabled());
}

TEST_F(IntervalTimer, StartsTheSessionWhereThePortIsClosed) {
    Tick(u"5");
    EXPECT_TRUE(form.IsRunning());
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
}

TEST_F(IntervalTimer, LeavesASessionWithAnOpenPortRunning) {
    bench.Start();
    bench.line.RunUntil(300);
    Tick(u"5");
    EXPECT_TRUE(form.IsRunning());
}

TEST_F(IntervalTimer, StopsASessionWhosePortIsNotYetOpen) {
    bench.Start();
    bench.line.RunUntil(299);
    Tick(u"5");
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(IntervalTimer, CancelledOrWrongAnswerEndsTheHandlerBeforeTheTimer) {
    for (const Text& answer : {Text(), Text(u"五")}) {
        NativeBench each;
        each.dialogs.Answers = {answer};
        Happen(each, [](MainForm& f) { f.TimeSetup.Set(true); });
        ASSERT_THAT(each.dialogs.Shown, SizeIs(2));
        EXPECT_EQ(each.dialogs.Shown[1].number, 13);
        EXPECT_EQ(each.Form().IntervalMinutes, 1);
        EXPECT_FALSE(each.Form().Timer1[2].Enabled());
        EXPECT_FALSE(each.Form().IsRunning());
    }
}

TEST_F(IntervalTimer, ClearingTheBoxEndsTheTimerAndLeavesTheSessionRunning) {
    Tick(u"5");
    form.TimeSetup.Set(false);
    EXPECT_FALSE(form.Timer1[2].Enabled());
    EXPECT_TRUE(form.IsRunning());
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(1));
}

// --- The tick ---

TEST_F(IntervalTimer, FlipsTheSessionOnceMoreThanTheMinutesHavePassed) {
    Tick(u"1");  // at 12:00:00
    bench.line.RunUntil(60000);
    EXPECT_TRUE(form.IsRunning());
    bench.line.RunUntil(61000);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(ToUtf8(form.IntervalLastRun), "12:01");
    bench.line.RunUntil(120000);
    EXPECT_FALSE(form.IsRunning());
    bench.line.RunUntil(121000);
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(ToUtf8(form.IntervalLastRun), "12:02");
}

TEST_F(IntervalTimer, CountsFromTheFullMinuteOfItsLastRun) {
    bench.line.SetWallClock({2024, 5, 6, 12, 0, 50});
    Tick(u"1");
    bench.line.RunUntil(10000);  // 12:01:00
    EXPECT_TRUE(form.IsRunning());
    bench.line.RunUntil(11000);
    EXPECT_FALSE(form.IsRunning());
}

struct Moment {
    DateTime now;
    Text lastRun;
    bool acts;
};

TEST_F(IntervalTimer, ActsOnMoreMinutesThanSetAndStaysQuietAcrossMidnight) {
    const Moment rows[] = {
        {{2024, 5, 6, 12, 5, 0}, u"12:00", false},  {{2024, 5, 6, 12, 5, 1}, u"12:00", true},
        {{2024, 5, 7, 0, 1, 0}, u"23:59", false},   {{2024, 5, 7, 23, 58, 0}, u"23:59", false},
        {{2024, 5, 7, 23, 59, 59}, u"23:54", true}, {{2024, 5, 6, 0, 5, 1}, u"00:00", true}};
    for (const Moment& row : rows) {
        FormBench each;
        each.line.SetWallClock(row.now);
        each.form.IntervalMinutes = 5;
        each.form.IntervalLastRun = row.lastRun;
        TickIntervalTimer(each.form);
        EXPECT_EQ(each.form.IsRunning(), row.acts) << ToUtf8(row.lastRun);
    }
}

TEST_F(IntervalTimer, RunsOncePerSecondWhileEnabled) {
    FormBench each;
    each.form.IntervalLastRun = u"11:00";
    each.form.Timer1[2].SetEnabled(true);
    each.line.RunUntil(999);
    EXPECT_FALSE(each.form.IsRunning());
    each.line.RunUntil(1000);
    EXPECT_TRUE(each.form.IsRunning());
}

TEST_F(IntervalTimer, WithoutALastRunRaisesError13) {
    FormBench each;
    EXPECT_EQ(ErrorOf([&] { TickIntervalTimer(each.form); }), 13);
}

}  // namespace
}  // namespace commtest
