#pragma once

#include <cstdint>
#include <vector>

#include "catalogue/instrument_catalogue.h"

namespace commtest {

// The rows of one instrument under one note.
struct RecordingSummary {
    Text protocol;
    Text instrument;
    Text note;
    Text firstDay;
    Text lastDay;
    std::int64_t exchanges = 0;
    std::int64_t deleted = 0;  // of them, marked as not valid
};

struct PairCount {
    std::int64_t all = 0;
    std::int64_t deleted = 0;

    void Count(bool isValid) {
        ++all;
        if (!isValid) ++deleted;
    }
};

// The recorded traffic for those who name it themselves: every value is bound, so that a name may hold what
// it likes. Deleted rows take part and are told. Errors of the store.
class Recordings {
  public:
    explicit Recordings(Store& store) : store_(store) {}

    std::vector<RecordingSummary> All() const;
    std::vector<RecordingSummary> OfInstrument(const Text& instrument) const;
    std::vector<RecordingSummary> OfNote(const Text& note) const;
    std::vector<RecordingSummary> Of(const Text& instrument, const Text& note) const;

    PairCount CountOf(const Text& instrument, const Text& note) const;

    // In the order in which they were stored.
    std::vector<RecordedExchange> Exchanges(const Text& instrument, const Text& note) const;
    // In one transaction: all of them, or none and the store's error.
    void Add(const std::vector<RecordedExchange>& exchanges);

    void Rename(const Text& instrument, const Text& newName);  // under every note
    void ChangeNote(const Text& note, const Text& newNote);    // of every instrument
    void SetValid(const Text& instrument, const Text& note, bool isValid);

  private:
    std::vector<RecordingSummary> Summaries(const Text& condition,
                                            const std::vector<StoreValue>& values) const;

    Store& store_;
};

}  // namespace commtest
