#include "window/scroll_hold.h"

#include <QElapsedTimer>

namespace commtest {

ScrollHold::Clock ScrollHold::RunningClock() {
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

void ScrollHold::NoteScroll() {
    hasScrolled_ = true;
    scrolledAt_ = clock_();
}

HoldReason ScrollHold::Reason(bool isEditing, bool isPointerIn) {
    if (isEditing) return HoldReason::Editing;
    if (isPointerIn) return HoldReason::Pointer;
    hasScrolled_ = hasScrolled_ && clock_() - scrolledAt_ < kAfterAScroll;
    return hasScrolled_ ? HoldReason::Scrolled : HoldReason::None;
}

}  // namespace commtest
