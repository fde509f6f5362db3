#pragma once

#include <optional>

#include "runtime/text.h"
#include "session/protocol.h"
#include "tools/round_trip_reasons.h"

namespace commtest {

class MainForm;

// Why a value should not leave, in the order in which it is looked at.
enum class WriteObjection {
    ProtocolWritesNothing,
    NoSuchRow,
    NoWriteAttribute,
    NoNumber,
    Uncodable,   // the builder raises error `error`
    AboveLimit,  // `limit`, with the row's decimals
    BelowLimit,
    DoesNotFit,  // the code cannot hold it: `arrives` would
};

// What is known of a value before it leaves.
struct WriteCheck {
    std::optional<WriteObjection> objection;
    int error = 0;
    Text limit;
    Text code;         // as it stands in the frame; empty where the row has none
    Text arrives;      // the value that the row would show for that code; empty where nothing can be said
    bool fits = true;  // `arrives` is the value, as far as can be said
    std::optional<LossReason> reason;  // why it does not fit, where that is known

    // Whether the objection is one to the row, or to a value that is no number, whatever the decimals are.
    bool ConcernsRow() const { return objection && *objection <= WriteObjection::NoNumber; }

    // Whether the value can leave at all, though it should not.
    bool CanLeave() const {
        return !objection || *objection == WriteObjection::AboveLimit ||
               *objection == WriteObjection::BelowLimit || *objection == WriteObjection::DoesNotFit;
    }
};

// Judges a value for a row of the parameter grid, from 1. Decimals that another row holds must have been read
// (DecimalsRowOf).
WriteCheck CheckWrite(const MainForm& form, int row, const Text& value);

// What a row's limits of the catalogue are in the user's numbers; nothing for an empty one, or one that is no
// number.
struct ShownLimits {
    std::optional<Text> lower;
    std::optional<Text> upper;
};
ShownLimits LimitsOf(const MainForm& form, int row);

// The row that holds a row's decimals, 0 if it has its own.
int DecimalsRowOf(const MainForm& form, int row);

// Whether a row's decimals are known: those that another row holds have been read.
bool KnowsDecimals(const MainForm& form, int row);

// What speaks against an entry in the cell editor: none where it is the protocol or the row that is not to be
// written, which the session itself deals with, or where decimals are not known yet and it is a number.
std::optional<WriteCheck> ObjectionToEntry(const MainForm& form, int row, const Text& entry);

// Why a row cannot be read alone.
Unreadable WhyUnreadable(const MainForm& form, int row);

// Whether two texts show one number, groups of digits or not. A value of four bytes is a float: its shown
// digits count, and no more.
bool ShowSameNumber(const Text& one, const Text& other, const Text& length);

}  // namespace commtest
