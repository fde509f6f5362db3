#include "host_qt/system_clock.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QThread>

namespace commtest {

DateTime SystemClock::Now() const {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

void SystemClock::Sleep(std::int32_t milliseconds) {
    if (milliseconds > 0) QThread::msleep(static_cast<unsigned long>(milliseconds));
}

double SystemClock::Random() { return QRandomGenerator::global()->generateDouble(); }

}  // namespace commtest
