#pragma once

#include <QObject>

#include "window/binder.h"
#include "window/note_bar.h"

namespace commtest {

// Says what is to be done where the list of recordings is shown for a replay that has none yet: the state
// line is on another page.
class ReplayHint : public QObject {
    Q_OBJECT

  public:
    ReplayHint(Binder& binder, NoteBar& notes, QObject* parent);

  private:
    bool IsDue() const;
    void Follow();

    MainForm& form_;
    NoteBar& notes_;
    bool wasDue_ = false;
};

}  // namespace commtest
