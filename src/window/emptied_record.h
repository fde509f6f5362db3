#pragma once

#include <QObject>
#include <deque>

#include "session/record_pane.h"
#include "window/binder.h"

namespace commtest {

class NoteBar;
class RecordView;

// A click on the record empties it and offers to put the blocks back, under those that have come since. The
// offer ends when the session empties the record.
class EmptiedRecord : public QObject {
    Q_OBJECT

  public:
    EmptiedRecord(Binder& binder, NoteBar& notes, RecordView& record);

  private:
    RecordPane& Record() { return binder_.Form().Record(); }
    bool OfferStands() const;
    void Empty();
    void PutBack();
    void EndOfferIfEmptiedAgain();

    Binder& binder_;
    NoteBar& notes_;
    std::deque<RecordBlock> taken_;  // while the offer stands
    std::uint64_t epoch_;
};

}  // namespace commtest
