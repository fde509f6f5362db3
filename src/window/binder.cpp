#include "window/binder.h"

#include <utility>

#include "session/events.h"

namespace commtest {

namespace {

// Milliseconds.
constexpr int kSoon = 33;
constexpr int kByItself = 100;

}  // namespace

Binder::Binder(MainForm& form) : form_(form) {
    connect(&timer_, &QTimer::timeout, this, &Binder::Look);
    timer_.setSingleShot(true);
    timer_.start(kByItself);
}

void Binder::Event(const std::function<void()>& handler) {
    RunEvent(form_, handler);
    Look();
}

void Binder::LookSoon() {
    if (std::exchange(looksSoon_, true)) return;
    timer_.start(kSoon);
}

void Binder::Watch(const Control& control, std::function<void()> show) {
    show();
    watched_.push_back({&control, control.Generation(), std::move(show)});
}

void Binder::AtEachLook(std::function<void()> look) {
    look();
    looks_.push_back(std::move(look));
}

// The next look is set first: what is shown may keep an event loop of its own, as a box does.
void Binder::Look() {
    looksSoon_ = false;
    timer_.start(kByItself);
    for (std::size_t i = 0; i < watched_.size(); ++i) {
        Watched& watched = watched_[i];
        if (watched.shown == watched.control->Generation()) continue;
        watched.shown = watched.control->Generation();
        watched.show();
    }
    for (std::size_t i = 0; i < looks_.size(); ++i) looks_[i]();
}

}  // namespace commtest
