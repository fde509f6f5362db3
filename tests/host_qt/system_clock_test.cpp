#include "host_qt/system_clock.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QElapsedTimer>

namespace commtest {

namespace {

QDateTime AsQt(const DateTime& moment) {
    return {QDate(moment.year, moment.month, moment.day), QTime(moment.hour, moment.minute, moment.second)};
}

TEST(SystemClock, TellsTheLocalTimeToTheSecond) {
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    const QDateTime now = AsQt(SystemClock().Now());
    EXPECT_LT(before, now);
    EXPECT_LE(now, QDateTime::currentDateTime());
}

TEST(SystemClock, SleepsForSomeMilliseconds) {
    QElapsedTimer watch;
    watch.start();
    SystemClock().Sleep(15);
    EXPECT_GE(watch.elapsed(), 15);
}

TEST(SystemClock, RandomNumbersStayInTheUnitIntervalAndDiffer) {
    SystemClock clock;
    const double first = clock.Random();
    bool differ = false;
    for (int turn = 0; turn < 1000; ++turn) {
        const double number = clock.Random();
        ASSERT_GE(number, 0.0);
        ASSERT_LT(number, 1.0);
        differ = differ || number != first;
    }
    EXPECT_TRUE(differ);
}

TEST(SystemClock, RandomNumbersAreTheSameAtEachStart) {
    SystemClock first;
    SystemClock second;
    for (int turn = 0; turn < 1000; ++turn) ASSERT_EQ(first.Random(), second.Random()) << turn;
}

// 3499211612 of 2 to the power of 32, and the 10000th number as the standard of the language states it:
// 4123659995.
TEST(SystemClock, RandomNumbersAreThoseOfTheMersenneTwister) {
    SystemClock clock;
    EXPECT_EQ(clock.Random(), 3499211612.0 / 4294967296.0);
    for (int turn = 2; turn < 10000; ++turn) clock.Random();
    EXPECT_EQ(clock.Random(), 4123659995.0 / 4294967296.0);
}

}  // namespace

}  // namespace commtest
