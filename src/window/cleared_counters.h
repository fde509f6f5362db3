#pragma once

#include <QObject>
#include <cstdint>

#include "window/binder.h"

namespace commtest {

class NoteBar;
class StatisticsLabel;

// A double click on the statistics clears the counters and offers to add them to what has been counted since.
class ClearedCounters : public QObject {
    Q_OBJECT

  public:
    ClearedCounters(Binder& binder, NoteBar& notes, QObject* parent);

    void Serve(StatisticsLabel& label);

  private:
    struct Counters {
        std::int32_t sent = 0;
        std::int32_t incomplete = 0;
        std::int32_t checkErrors = 0;
        std::int32_t missing = 0;

        bool operator==(const Counters&) const = default;
    };

    bool OfferStands() const;
    Counters Counted() const;
    void Add(const Counters& counters);
    void Clear();
    void PutBack();

    Binder& binder_;
    NoteBar& notes_;
    Counters taken_;
};

}  // namespace commtest
