#pragma once

#include <QtGlobal>
#include <functional>
#include <utility>

namespace commtest {

// Why a grid stands still for its user while the polling moves on.
enum class HoldReason { None, Editing, Pointer, Scrolled };

// For three seconds behind each scroll of the user the grid stays where that has brought it.
class ScrollHold {
  public:
    using Clock = std::function<qint64()>;  // milliseconds since a moment of its own

    static constexpr qint64 kAfterAScroll = 3000;
    static Clock RunningClock();

    explicit ScrollHold(Clock clock) : clock_(std::move(clock)) {}

    void NoteScroll();

    HoldReason Reason(bool isEditing, bool isPointerIn);

  private:
    Clock clock_;
    bool hasScrolled_ = false;
    qint64 scrolledAt_ = 0;  // of clock_
};

}  // namespace commtest
