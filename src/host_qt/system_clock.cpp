#include "host_qt/system_clock.h"

#include <QThread>
#include <chrono>

#include "host_qt/local_time.h"

namespace commtest {

DateTime SystemClock::Now() const { return LocalTime(QDateTime::currentDateTime()); }

std::int64_t SystemClock::Microseconds() const {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

void SystemClock::Sleep(std::int32_t milliseconds) {
    if (milliseconds > 0) QThread::msleep(static_cast<unsigned long>(milliseconds));
}

double SystemClock::Random() { return static_cast<double>(random_()) * 0x1.0p-32; }

}  // namespace commtest
