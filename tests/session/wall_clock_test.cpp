#include "session/wall_clock.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

constexpr DateTime kMorning = {2024, 5, 6, 7, 8, 9};
constexpr DateTime kLateEvening = {1999, 12, 31, 23, 59, 59};

TEST(WallClock, ClockPanelNamesYearMonthAndDay) {
    EXPECT_EQ(ToUtf8(ClockPanelText(kMorning)), "2024年05月06日  07:08:09");
    EXPECT_EQ(ToUtf8(ClockPanelText(kLateEvening)), "1999年12月31日  23:59:59");
}

TEST(WallClock, ClockPanelOfTheEnglishFaceHasTheDayFirst) {
    EXPECT_EQ(ToUtf8(DayFirstClockPanelText(kMorning)), "06 / 05 / 2024   07:08:09");
    EXPECT_EQ(ToUtf8(DayFirstClockPanelText(kLateEvening)), "31 / 12 / 1999   23:59:59");
}

TEST(WallClock, TimeStampHasYearMonthDayByHyphens) {
    EXPECT_EQ(ToUtf8(TimeStampText(kMorning)), "2024-05-06 07:08:09");
    EXPECT_EQ(ToUtf8(TimeStampText(kLateEvening)), "1999-12-31 23:59:59");
}

TEST(WallClock, RecordDigitsAreTwoEachWithoutTheCentury) {
    EXPECT_EQ(ToUtf8(RecordDigits(kMorning)), "240506070809");
    EXPECT_EQ(ToUtf8(RecordDigits(kLateEvening)), "991231235959");
    EXPECT_EQ(ToUtf8(RecordDigits({2005, 1, 2, 0, 0, 0})), "050102000000");
}

TEST(WallClock, HourAndMinuteDropTheSeconds) {
    EXPECT_EQ(ToUtf8(HourMinuteText(kMorning)), "07:08");
    EXPECT_EQ(ToUtf8(HourMinuteText(kLateEvening)), "23:59");
}

TEST(WallClock, SecondsCountFromMidnight) {
    EXPECT_EQ(SecondsOfDay({2024, 5, 6, 0, 0, 0}), 0);
    EXPECT_EQ(SecondsOfDay(kMorning), 25689);  // 7 * 3600 + 8 * 60 + 9
    EXPECT_EQ(SecondsOfDay(kLateEvening), 86399);
    EXPECT_EQ(SecondsOfHourMinute(u"00:00"), 0);
    EXPECT_EQ(SecondsOfHourMinute(u"07:08"), 25680);
    EXPECT_EQ(SecondsOfHourMinute(u"23:59"), 86340);
}

TEST(WallClock, TextThatIsNoTimeOfDayRaisesError13) {
    for (const Text& text : {Text(), Text(u"12"), Text(u":30"), Text(u"noon")}) {
        EXPECT_EQ(ErrorOf([&] { SecondsOfHourMinute(text); }), 13) << ToUtf8(text);
    }
}

}  // namespace
}  // namespace commtest
