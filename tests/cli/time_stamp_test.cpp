#include "cli/time_stamp.h"

#include <gtest/gtest.h>

#include <QTimeZone>

namespace commtest {

namespace {

TEST(TimeStamp, HasMillisecondsAndTheDistanceFromUtc) {
    const QDate day(2026, 11, 22);
    const QTime time(9, 5, 1, 7);
    EXPECT_EQ(TimeStamp(QDateTime(day, time, Qt::OffsetFromUTC, 8 * 3600)), "2026-11-22T09:05:01.007+08:00");
    EXPECT_EQ(TimeStamp(QDateTime(day, time, Qt::OffsetFromUTC, -(3 * 3600 + 1800))),
              "2026-11-22T09:05:01.007-03:30");
    EXPECT_EQ(TimeStamp(QDateTime(day, time, Qt::UTC)), "2026-11-22T09:05:01.007+00:00");
}

}  // namespace

}  // namespace commtest
