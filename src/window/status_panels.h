#pragma once

#include <QStatusBar>

#include "window/binder.h"

namespace commtest {

class NoteBar;

// StatusBar1: the maker's line with the catalogue, the state of the port behind the dot that blinks while the
// session polls, the passing word to the user, and the clock.
class StatusPanels : public QStatusBar {
    Q_OBJECT

  public:
    StatusPanels(Binder& binder, NoteBar& notes, QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddMakerPanel();
    void AddPortPanel();
    void FollowNote();
    void SwitchCatalogue();

    Binder& binder_;
    NoteBar& notes_;
    QWidget* maker_ = nullptr;
};

}  // namespace commtest
