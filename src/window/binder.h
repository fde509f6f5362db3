#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>

#include "session/main_form.h"

namespace commtest {

// Where widgets and controls meet. It looks which controls have changed and lets their widgets show them: at
// once behind each event of the user, soon behind those of the line and of the timers, about 30 times a
// second at the most, and by itself about 10 times a second. The core calls no widget.
class Binder : public QObject {
  public:
    explicit Binder(MainForm& form);

    MainForm& Form() { return form_; }

    // Runs an event of the user through the session's one door and shows what it has changed.
    void Event(const std::function<void()>& handler);

    // `show` runs at once and whenever the control has changed.
    void Watch(const Control& control, std::function<void()> show);

    // Something may have changed that is no event of the user: one look for all of it, in a thirtieth of a
    // second.
    void LookSoon();
    bool LooksSoon() const { return looksSoon_; }

    // `look` runs at every look, for views that find out by themselves what has changed.
    void AtEachLook(std::function<void()> look);

    void Look();

  private:
    struct Watched {
        const Control* control;
        std::uint64_t shown;
        std::function<void()> show;
    };

    MainForm& form_;
    // A view that is made within a look joins it; what runs stays where it is.
    std::deque<Watched> watched_;
    std::deque<std::function<void()>> looks_;
    QTimer timer_;  // of the next look
    bool looksSoon_ = false;
};

}  // namespace commtest
