#include "window/cell_flash.h"

#include <QElapsedTimer>
#include <array>
#include <utility>

namespace commtest {

namespace {

constexpr int kPeriod = 50;  // milliseconds

struct Phase {
    qint64 end;  // milliseconds since the change
    double strength;
};

constexpr std::array<Phase, 3> kPhases = {{{250, 1.0}, {550, 0.5}, {850, 0.25}}};

double StrengthAt(qint64 age) {
    for (const Phase& phase : kPhases) {
        if (age < phase.end) return phase.strength;
    }
    return 0;
}

}  // namespace

CellFlash::CellFlash(std::function<void(Cell)> repaint, QObject* parent, Clock clock)
    : QObject(parent), repaint_(std::move(repaint)), clock_(std::move(clock)) {
    connect(&timer_, &QTimer::timeout, this, &CellFlash::Step);
}

CellFlash::Clock CellFlash::RunningClock() {
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

void CellFlash::Light(Cell cell) {
    lit_[cell] = {clock_(), 1.0};
    if (!timer_.isActive()) timer_.start(kPeriod);
    repaint_(cell);
}

void CellFlash::PutOut() {
    timer_.stop();
    lit_.clear();
}

double CellFlash::StrengthOf(Cell cell) const {
    const auto found = lit_.find(cell);
    return found == lit_.end() ? 0 : found->second.strength;
}

void CellFlash::Step() {
    const qint64 now = clock_();
    for (auto entry = lit_.begin(); entry != lit_.end();) {
        const auto [cell, lit] = *entry;
        const double strength = StrengthAt(now - lit.since);
        if (strength > 0) {
            entry->second.strength = strength;
            ++entry;
        } else {
            entry = lit_.erase(entry);
        }
        if (strength != lit.strength) repaint_(cell);
    }
    if (lit_.empty()) timer_.stop();
}

}  // namespace commtest
