#pragma once

#include <QSettings>

#include "window/binder.h"
#include "window/text_spin_box.h"

namespace commtest {

// What the user chooses is remembered when it is chosen, in the section "Window" of the settings, and does
// not wait for the end of the program: protocol and instrument, an interval that was typed, write type, no
// scrolling, what is saved, and for each protocol how its frames are shown.
class RememberedChoices {
  public:
    // A session with an instrument of its own keeps the instrument out of it. `settings` outlives this, and
    // this the session's last event.
    RememberedChoices(MainForm& form, QSettings& settings, bool keepsInstrument);

    // Behind the start: what was remembered is chosen again. An instrument that is gone leaves the one
    // chosen. From then on each protocol that is chosen shows its frames as they were last shown with it.
    void PutBack();

    // From now on what is chosen is remembered.
    void Follow(Binder& binder, const TextSpinBox& interval);

    // From now on nothing more is.
    void BeginTrial() { isTrial_ = true; }

  private:
    void PutBackInstrument();
    void PutBackShowMode();
    void FollowInstrument(Binder& binder);
    void Keep(const QString& key, const QVariant& value);
    void Remember(Binder& binder, const Control& control, const QString& key,
                  const std::function<QVariant()>& value);

    MainForm& form_;
    QSettings& settings_;
    bool keepsInstrument_;
    bool isTrial_ = false;
};

}  // namespace commtest
