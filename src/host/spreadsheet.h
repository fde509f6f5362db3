#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "runtime/text.h"

namespace commtest {

// A text for a cell. Rows count from 1 and columns from 0 ("A"), so that the texts of the house read alike:
// row 6, column 0 is "A6".
struct SheetCell {
    int row = 1;
    int column = 0;
    Text text;

    friend bool operator==(const SheetCell&, const SheetCell&) = default;
};

// A copy of a template with texts put into cells of one of its sheets. Paths are full ones.
struct SpreadsheetOrder {
    Text templatePath;
    Text sheet;
    std::vector<SheetCell> cells;
    Text resultPath;
};

// How an order has ended. But for Written, what stood under the name of the result stands there as before,
// and nothing stands beside it.
struct SpreadsheetResult {
    enum class Kind {
        Written,
        NoEngine,            // no program that writes spreadsheets is installed
        NoTemplate,          // `detail`: its path
        UnreadableTemplate,  // `detail`: what the engine says of it, in its own words
        NoSheet,             // `detail`: the sheet that the template lacks
        OpenElsewhere,       // another program has the result open; `detail`: the file that tells so
        NoRight,             // the result may not be written; `detail`: its path
        NoRoom,              // the disk is full; `detail`: the path that had no room
        CannotWrite,         // any other reason; `detail`: the path and the system's words
        EngineFailed,        // `detail`: the engine's own words
        EngineHangs,         // it took longer than kLongestSpreadsheetStep; `detail`: its name
    };
    Kind kind = Kind::Written;
    Text detail = {};

    friend bool operator==(const SpreadsheetResult&, const SpreadsheetResult&) = default;

    // Any other order with the same template would end so, too.
    bool IsForAll() const {
        return kind == Kind::NoEngine || kind == Kind::NoTemplate || kind == Kind::UnreadableTemplate ||
               kind == Kind::NoSheet;
    }
};

// An order under way. Once this goes nothing more is heard of it: what it has not finished is undone. It may
// go within its own `done`.
class SpreadsheetJob {
  public:
    virtual ~SpreadsheetJob() = default;
};

// Milliseconds that an engine may take for a step of an order; longer is a hang.
inline constexpr int kLongestSpreadsheetStep = 30000;

// Writes spreadsheets, beside the program's own work.
class SpreadsheetEngine {
  public:
    virtual ~SpreadsheetEngine() = default;

    // How many orders are best under way at a time.
    virtual int JobsAtATime() const = 0;

    // Begins an order; `done` is called once, from the event loop and never from within this call.
    using Done = std::function<void(const SpreadsheetResult&)>;
    virtual std::unique_ptr<SpreadsheetJob> Begin(SpreadsheetOrder order, Done done) = 0;
};

}  // namespace commtest
