#pragma once

#include <string_view>
#include <vector>

#include "catalogue/recordings.h"

namespace commtest {

// What a recording file adds to the recorded traffic: its pairs that are not known by instrument, note and
// reply. Notes are in capitals and a reply has one row, as in a capture; a deleted pair is known, too.
struct RecordingAddition {
    Text instrument;
    Text note;
    PairCount present;      // what the instrument has under the note already
    std::size_t known = 0;  // pairs of the file that are left out
    std::vector<RecordedExchange> pairs;

    bool GoesToAnExistingNote() const { return present.all > 0 && !pairs.empty(); }
};

// A RecordingFileError for bytes that are no recording; errors of the store.
RecordingAddition AdditionOf(std::string_view file, const Recordings& recordings);

}  // namespace commtest
