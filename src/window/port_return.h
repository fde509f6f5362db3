#pragma once

#include "window/binder.h"
#include "window/note_bar.h"
#include "window/state_line.h"

namespace commtest {

// A port that went while the session ran, and is back: the state line and a note, which stands on every page,
// offer to go on, until the next start.
class PortReturn : public QObject {
    Q_OBJECT

  public:
    PortReturn(Binder& binder, StateLine& state, NoteBar& notes, QObject* parent);

    // Nothing is offered where something else has stopped the session.
    void TellBack(const QString& device);
    void TellGone();

  private:
    std::optional<StateMessage> Message();
    void AskInNote();
    void GoOn();

    Binder& binder_;
    NoteBar& notes_;
    QString words_;  // "COM1 已恢复"; empty while nothing is offered
    QString device_;
};

}  // namespace commtest
