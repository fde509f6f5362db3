#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "catalogue/spreadsheet_cells.h"

namespace commtest {

// Writes tables to spreadsheets, a few at a time, and keeps account of them.
class SpreadsheetRun {
  public:
    struct Places {
        Text templatePath;
        Text folder;  // of the results, a full path
    };
    SpreadsheetRun(SpreadsheetEngine& engine, Places places, std::vector<InstrumentSheet> sheets);
    SpreadsheetRun(const SpreadsheetRun&) = delete;
    SpreadsheetRun& operator=(const SpreadsheetRun&) = delete;

    // What has become of a table.
    struct Entry {
        Text instrument;
        Text path;                                 // of the result
        SpreadsheetResult result = {};             // not asked for where the table could not be loaded
        std::optional<RuntimeError> failure = {};  // the store's, which kept it from being loaded

        bool IsWritten() const { return !failure && result.kind == SpreadsheetResult::Kind::Written; }
    };

    // Behind each table that the engine has ended; from within Start only where the run is over at once.
    std::function<void()> Changed;

    void Start();

    // Ends it at once, without a call of Changed: what is not finished is undone and stands in no list.
    void Cancel();

    bool IsOver() const { return isOver_; }
    bool WasCancelled() const { return wasCancelled_; }

    // A failure that any further table would have met: the run is over, the others were not begun.
    const std::optional<SpreadsheetResult>& Hindrance() const { return hindrance_; }

    std::size_t Total() const { return sheets_.size(); }
    const Text& LastBegun() const { return lastBegun_; }        // an instrument; empty before the first
    const std::vector<Entry>& Ended() const { return ended_; }  // in the order of their ends
    std::size_t WrittenCount() const;

  private:
    Text PathOf(const InstrumentSheet& sheet) const;
    void BeginMore();
    void Begin(std::size_t index);
    void Take(std::size_t index, const SpreadsheetResult& result);

    SpreadsheetEngine& engine_;
    Places places_;
    std::vector<InstrumentSheet> sheets_;
    std::size_t next_ = 0;
    std::map<std::size_t, std::unique_ptr<SpreadsheetJob>> underWay_;  // by the index of the sheet
    Text lastBegun_;
    std::vector<Entry> ended_;
    std::optional<SpreadsheetResult> hindrance_;
    bool isOver_ = false;
    bool wasCancelled_ = false;
};

}  // namespace commtest
