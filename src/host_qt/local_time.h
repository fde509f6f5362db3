#pragma once

#include <QDateTime>

#include "host/clock.h"

namespace commtest {

inline DateTime LocalTime(const QDateTime& moment) {
    const QDateTime local = moment.toLocalTime();
    const QDate date = local.date();
    const QTime time = local.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

}  // namespace commtest
