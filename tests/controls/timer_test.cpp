#include "controls/timer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace commtest {
namespace {

// Writes down what it is told, with the interval at that moment.
class RecordingDriver : public TimerDriver {
  public:
    void Started(Timer& timer) override { Told.push_back("started " + std::to_string(timer.Interval())); }
    void Stopped(Timer&) override { Told.push_back("stopped"); }

    std::vector<std::string> Told;
};

using Told = std::vector<std::string>;

class TimerTest : public ::testing::Test {
  protected:
    Timer& Driven(bool enabled) {
        timer_ = Timer(enabled, 300);
        timer_.DriveBy(&driver);
        driver.Told.clear();
        return timer_;
    }

    RecordingDriver driver;

  private:
    Timer timer_{false, 300};
};

TEST_F(TimerTest, EnablingStartsAndDisablingStops) {
    Timer& timer = Driven(false);
    timer.SetEnabled(true);
    EXPECT_TRUE(timer.Enabled());
    timer.SetEnabled(false);
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(driver.Told, (Told{"started 300", "stopped"}));
}

TEST_F(TimerTest, EnablingAnEnabledTimerDoesNotStartItsCountAnew) {
    Timer& timer = Driven(true);
    timer.SetEnabled(true);
    EXPECT_EQ(driver.Told, Told{});
}

TEST_F(TimerTest, DisablingADisabledTimerTellsNobody) {
    Timer& timer = Driven(false);
    timer.SetEnabled(false);
    EXPECT_EQ(driver.Told, Told{});
}

TEST_F(TimerTest, SettingTheIntervalOfAnEnabledTimerStartsItsCountAnew) {
    Timer& timer = Driven(true);
    timer.SetInterval(50);
    timer.SetInterval(50);
    EXPECT_EQ(driver.Told, (Told{"started 50", "started 50"}));
    EXPECT_EQ(timer.Interval(), 50);
}

TEST_F(TimerTest, SettingTheIntervalOfADisabledTimerStartsNothing) {
    Timer& timer = Driven(false);
    timer.SetInterval(50);
    EXPECT_EQ(driver.Told, Told{});
    timer.SetEnabled(true);
    EXPECT_EQ(driver.Told, Told{"started 50"});
}

TEST_F(TimerTest, IntervalOfZeroIsAnInterval) {
    Timer& timer = Driven(true);
    timer.SetInterval(0);
    EXPECT_TRUE(timer.Enabled());
    EXPECT_EQ(driver.Told, Told{"started 0"});
}

TEST_F(TimerTest, DriverThatComesLateStartsAnEnabledTimer) {
    Timer enabled(true, 1000);
    Timer disabled(false, 1000);
    enabled.DriveBy(&driver);
    disabled.DriveBy(&driver);
    EXPECT_EQ(driver.Told, Told{"started 1000"});
}

TEST_F(TimerTest, DetachedTimerTellsNobody) {
    Timer& timer = Driven(true);
    timer.DriveBy(nullptr);
    timer.SetInterval(20);
    timer.SetEnabled(false);
    EXPECT_EQ(driver.Told, Told{});
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 20);
}

}  // namespace
}  // namespace commtest
