#pragma once

#include <QObject>

#include "window/binder.h"
#include "window/note_bar.h"

namespace commtest {

// Deleted pairs count as known: a capture or an import that meets them stores nothing that shows. The window
// says so where exchanges are captured under a note that has some, and offers to bring them back.
class DeletedPairs : public QObject {
    Q_OBJECT

  public:
    DeletedPairs(Binder& binder, NoteBar& notes, QObject* parent);

    // The same behind other words of the note bar; nothing where no pair of the note is deleted.
    void TellBehind(const QString& words, const Text& instrument, const Text& note);

  private:
    // What is captured: an instrument under a note; both empty while nothing is.
    struct Subject {
        Text instrument = {};
        Text note = {};

        bool operator==(const Subject&) const = default;
    };

    void Follow();
    void Withdraw();
    void BringBack(const Subject& subject);

    Binder& binder_;
    NoteBar& notes_;
    Subject captured_;
    QString told_;  // the last question
};

}  // namespace commtest
