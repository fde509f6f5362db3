#include "host_qt/qt_timers.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "host_qt/event_loop.h"

namespace commtest {

namespace {

using testing::Eventually;
using testing::RunEventLoopFor;
using namespace std::chrono_literals;

class QtTimersTest : public ::testing::Test {
  protected:
    void Drive() {
        timers.Drive(timer, [this] {
            ++ticks;
            if (AtTick) AtTick();
        });
    }

    // Runs the event loop until so many ticks have come, and gives the milliseconds that it took.
    qint64 TimeOfTicks(int wanted) {
        QElapsedTimer watch;
        watch.start();
        EXPECT_TRUE(Eventually([&] { return ticks >= wanted; }));
        return watch.elapsed();
    }

    QtTimers timers;
    Timer timer{false, 20};
    int ticks = 0;
    std::function<void()> AtTick;
};

TEST_F(QtTimersTest, DisabledTimerIsSilent) {
    Drive();
    RunEventLoopFor(50ms);
    EXPECT_EQ(ticks, 0);
}

TEST_F(QtTimersTest, EnabledTimerTicksAtItsInterval) {
    Drive();
    timer.SetEnabled(true);
    EXPECT_GE(TimeOfTicks(3), 59);
    EXPECT_EQ(ticks, 3);
}

TEST_F(QtTimersTest, TimerThatIsEnabledAlreadyIsDriven) {
    timer.SetEnabled(true);
    Drive();
    EXPECT_GE(TimeOfTicks(1), 19);
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtTimersTest, IntervalOfZeroTicksWheneverTheLoopIsFree) {
    timer.SetInterval(0);
    Drive();
    timer.SetEnabled(true);
    EXPECT_LT(TimeOfTicks(1000), 900);
}

TEST_F(QtTimersTest, NegativeIntervalCountsAsZero) {
    timer.SetInterval(-5);
    Drive();
    timer.SetEnabled(true);
    EXPECT_LT(TimeOfTicks(1000), 900);
}

TEST_F(QtTimersTest, DisablingInATickEndsTheTicks) {
    AtTick = [this] { timer.SetEnabled(false); };
    timer.SetInterval(1);
    Drive();
    timer.SetEnabled(true);
    TimeOfTicks(1);
    RunEventLoopFor(30ms);
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtTimersTest, NewIntervalStartsTheCountAnew) {
    timer.SetInterval(5000);
    Drive();
    timer.SetEnabled(true);
    timer.SetInterval(1);
    EXPECT_LT(TimeOfTicks(1), 1000);
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtTimersTest, OutliveTheTimersThatTheyDrive) {
    {
        Timer passing(true, 1);
        timers.Drive(passing, [this] { ++ticks; });
        passing.SetEnabled(false);
    }
    RunEventLoopFor(20ms);
    EXPECT_EQ(ticks, 0);
}

}  // namespace

}  // namespace commtest
