#include "host_qt/qt_timers.h"

#include <algorithm>
#include <utility>

namespace commtest {

void QtTimers::Drive(Timer& timer, std::function<void()> tick) {
    auto driven = std::make_unique<QTimer>();
    driven->setTimerType(Qt::PreciseTimer);
    QObject::connect(driven.get(), &QTimer::timeout, std::move(tick));
    timers_[&timer] = std::move(driven);
    timer.DriveBy(this);
}

void QtTimers::Started(Timer& timer) { timers_.at(&timer)->start(std::max(timer.Interval(), 0)); }

void QtTimers::Stopped(Timer& timer) { timers_.at(&timer)->stop(); }

}  // namespace commtest
