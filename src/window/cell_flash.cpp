#include "window/cell_flash.h"

#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace commtest {

namespace {

constexpr qint64 kPeriod = 50;  // milliseconds: cells that were lit one behind the other change together

struct Phase {
    qint64 end;  // milliseconds since the change
    double strength;
};

constexpr std::array<Phase, 3> kPhases = {{{250, 1.0}, {550, 0.5}, {850, 0.25}}};

constexpr Phase kDark = {std::numeric_limits<qint64>::max(), 0};

const Phase& PhaseAt(qint64 age) {
    for (const Phase& phase : kPhases) {
        if (age < phase.end) return phase;
    }
    return kDark;
}

}  // namespace

CellFlash::CellFlash(std::function<void(Cell)> repaint, QObject* parent, Clock clock)
    : QObject(parent), repaint_(std::move(repaint)), clock_(std::move(clock)) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &CellFlash::Step);
}

CellFlash::Clock CellFlash::RunningClock() {
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

void CellFlash::Light(Cell cell) {
    lit_[cell] = {clock_(), 1.0};
    if (!timer_.isActive()) timer_.start(static_cast<int>(kPhases.front().end));
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
    qint64 next = kPhases.back().end;  // milliseconds to the next change of one of them
    for (auto entry = lit_.begin(); entry != lit_.end();) {
        const auto [cell, lit] = *entry;
        const qint64 age = now - lit.since;
        const auto& [end, strength] = PhaseAt(age);
        if (strength > 0) {
            entry->second.strength = strength;
            next = std::min(next, end - age);
            ++entry;
        } else {
            entry = lit_.erase(entry);
        }
        if (strength != lit.strength) repaint_(cell);
    }
    const qint64 periods = (next + kPeriod - 1) / kPeriod;
    if (!lit_.empty()) timer_.start(static_cast<int>(periods * kPeriod));
}

}  // namespace commtest
