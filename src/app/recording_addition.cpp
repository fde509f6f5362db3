#include "app/recording_addition.h"

#include <set>

#include "replay/recording_file.h"
#include "runtime/hex_text.h"

namespace commtest {

RecordingAddition AdditionOf(std::string_view file, const Recordings& recordings) {
    const RecordingFile recording = ReadRecordingFile(file);
    RecordingAddition addition;
    addition.instrument = recording.head.instrument;
    addition.note = UCase(recording.head.note);
    std::set<HexText> replies;
    for (const RecordedExchange& one : recordings.Exchanges(addition.instrument, addition.note)) {
        replies.insert(one.reply);
        addition.present.Count(one.isValid);
    }
    for (RecordedExchange one : recording.exchanges) {
        one.note = addition.note;
        if (replies.insert(one.reply).second) addition.pairs.push_back(std::move(one));
    }
    addition.known = recording.exchanges.size() - addition.pairs.size();
    return addition;
}

}  // namespace commtest
