#include "window/slices.h"

#include <QElapsedTimer>
#include <utility>

namespace commtest {

Slices::Slices(QObject* parent) : QObject(parent) { connect(&timer_, &QTimer::timeout, this, &Slices::Run); }

void Slices::Begin(std::function<bool()> step) {
    step_ = std::move(step);
    timer_.start(0);
}

void Slices::GoOn() {
    if (IsUnderWay()) timer_.start(0);
}

void Slices::End() {
    timer_.stop();
    step_ = nullptr;
}

void Slices::Run() {
    QElapsedTimer slice;
    slice.start();
    while (!slice.hasExpired(kMilliseconds)) {
        if (step_()) continue;
        End();
        emit Done();
        return;
    }
}

}  // namespace commtest
