#include "catalogue/spreadsheet_run.h"

#include <algorithm>
#include <utility>

#include "controls/value_controls.h"

namespace commtest {

SpreadsheetRun::SpreadsheetRun(SpreadsheetEngine& engine, Places places, std::vector<InstrumentSheet> sheets)
    : engine_(engine), places_(std::move(places)), sheets_(std::move(sheets)) {}

void SpreadsheetRun::Start() {
    BeginMore();
    if (isOver_) RunIfSet(Changed);
}

void SpreadsheetRun::Cancel() {
    if (isOver_) return;
    underWay_.clear();
    wasCancelled_ = true;
    isOver_ = true;
}

std::size_t SpreadsheetRun::WrittenCount() const {
    return static_cast<std::size_t>(
        std::count_if(ended_.begin(), ended_.end(), [](const Entry& entry) { return entry.IsWritten(); }));
}

Text SpreadsheetRun::PathOf(const InstrumentSheet& sheet) const {
    Text path = places_.folder;
    return path.append(u"/").append(sheet.fileName);
}

void SpreadsheetRun::BeginMore() {
    const auto atATime = static_cast<std::size_t>(engine_.JobsAtATime());
    while (next_ < sheets_.size() && underWay_.size() < atATime) Begin(next_++);
    isOver_ = underWay_.empty();
}

void SpreadsheetRun::Begin(std::size_t index) {
    InstrumentSheet& sheet = sheets_[index];
    const Text path = PathOf(sheet);
    lastBegun_ = sheet.instrument;
    if (sheet.failure) {
        Entry& entry = ended_.emplace_back();
        entry.instrument = sheet.instrument;
        entry.path = path;
        entry.failure = sheet.failure;
        return;
    }
    underWay_[index] =
        engine_.Begin({places_.templatePath, Text(kSpreadsheetSheet), std::move(sheet.cells), path},
                      [this, index](const SpreadsheetResult& result) { Take(index, result); });
}

void SpreadsheetRun::Take(std::size_t index, const SpreadsheetResult& result) {
    const InstrumentSheet& sheet = sheets_[index];
    ended_.push_back({sheet.instrument, PathOf(sheet), result});
    underWay_.erase(index);
    if (result.IsForAll()) {
        hindrance_ = result;
        underWay_.clear();
        isOver_ = true;
    } else {
        BeginMore();
    }
    RunIfSet(Changed);
}

}  // namespace commtest
