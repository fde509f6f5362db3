// Arbitrary bytes as a recording file: it is read to its end or refused at one of its lines; what was read is
// written and read again alike, and goes into a catalogue once and out of it as it stood.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "app/recording_addition.h"
#include "app/recording_words.h"
#include "fuzz/require.h"
#include "replay/recording_file.h"
#include "support/sqlite_store.h"

namespace commtest::fuzz {

namespace {

std::optional<RecordingFile> Read(std::string_view bytes) {
    try {
        return ReadRecordingFile(bytes);
    } catch (const RecordingFileError& error) {
        const auto lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
        Require(error.Fault().line >= 1 && error.Fault().line <= lines, "the fault has a line of the file");
        Require(!WordsOnFault(error.Fault()).empty(), "the fault has words");
        return std::nullopt;
    }
}

void RequireRefused(std::string_view bytes, const Recordings& recordings) {
    try {
        AdditionOf(bytes, recordings);
        Require(false, "what is refused adds nothing");
    } catch (const RecordingFileError&) {
    }
}

void RequireReadAgain(const std::string& written, std::size_t exchanges) {
    const RecordingFile again = ReadRecordingFile(written);
    Require(again.exchanges.size() == exchanges, "each exchange is written");
    Require(WrittenRecordingFile(again) == written, "what is written is read as it was");
}

// The pairs of a reading that has come from a store in the order of the file.
void RequireStoredOnce(const RecordingAddition& addition, std::string_view bytes, Recordings& recordings) {
    recordings.Add(addition.pairs);
    const RecordingAddition again = AdditionOf(bytes, recordings);
    Require(again.pairs.empty(), "a second import adds nothing");
    Require(again.known == addition.known + addition.pairs.size(), "a second import knows each pair");
    if (addition.pairs.empty()) return;
    const std::string written = WrittenRecordingFile({addition.pairs.front(), addition.pairs});
    const auto stored = recordings.Exchanges(addition.instrument, addition.note);
    Require(!stored.empty() && WrittenRecordingFile({stored.front(), stored}) == written,
            "the store gives back what was added");
    RequireReadAgain(written, stored.size());
}

void Run(std::string_view bytes) {
    static const auto store = testing::MakeEmptyCatalogue();
    Recordings recordings(*store);
    store->Execute(u"Delete From 通讯_仿真");
    const std::optional<RecordingFile> recording = Read(bytes);
    if (!recording) return RequireRefused(bytes, recordings);
    RequireReadAgain(WrittenRecordingFile(*recording), recording->exchanges.size());
    const RecordingAddition addition = AdditionOf(bytes, recordings);
    Require(addition.known + addition.pairs.size() == recording->exchanges.size(), "each pair is counted");
    Require(addition.pairs.empty() == recording->exchanges.empty(), "an unknown note takes pairs");
    RequireStoredOnce(addition, bytes, recordings);
}

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    commtest::fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
