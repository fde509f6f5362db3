#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "runtime/hex_text.h"
#include "session/grid_rows.h"

namespace commtest {

// How the wait for a reply has ended.
enum class Ending {
    Complete,    // the reply has its end
    Continued,   // it is one part of a longer answer
    Silent,      // nothing came before the time-out
    Incomplete,  // bytes came, but no end
    Unjudged,    // the cycle stood at none of its steps of waiting: nothing is tested or counted
};

// A request and what came of it. Times are microseconds of Clock::Microseconds.
struct Exchange {
    std::int32_t number = 0;  // of its request: SendCount behind it
    HexText request = {};
    HexText reply = {};
    Ending ending = Ending::Unjudged;
    std::int64_t requestTime = 0;
    std::optional<std::int64_t> firstByteTime = {};  // none where nothing has come
    std::optional<std::int64_t> lastByteTime = {};
    Text address = {};      // of the instrument, as the user reads it (ConMeterAddr)
    Text addressText = {};  // and as it stands in a frame (AddressText)

    bool HasEnded() const { return ending == Ending::Complete || ending == Ending::Continued; }
};

enum class CheckWord { Right, Wrong, None, NotJudged };  // None: the reply comes without one

enum class Answer { Unknown, Data, Written, Refused, Test, Board };

// What an instrument says where it refuses. The native family's refusal has no numbers.
struct InstrumentException {
    int function = 0;  // 0x81 to 0x88
    int detail = 0;    // the byte behind it

    friend bool operator==(const InstrumentException&, const InstrumentException&) = default;
};

// What a family makes of an exchange, and what is to happen for it.
struct Verdict {
    CheckWord check = CheckWord::NotJudged;
    Answer answer = Answer::Unknown;
    Text word;  // what the reply calls itself: "RD", "**"; "03", "86"
    std::optional<InstrumentException> exception;
    int board = 0;  // the type that a board names

    bool decodes = false;       // its data go to the grid
    bool logsError = false;     // the error file gets the record's line
    bool stopsSession = false;  // by the button alone: CycleStep stays
    bool makesReady = false;    // CycleStep goes to 1
    bool dropsReply = false;    // what is decoded is the empty text

    // A read that can be relied on.
    bool IsGoodRead() const { return check == CheckWord::Right && answer == Answer::Data; }
};

// The verdict on a wait that has run out: every family's table has it last.
Verdict VerdictOnNoReply();

// An exchange with its verdict and the rows of the parameter grid that its data went to.
struct Outcome {
    Exchange exchange;
    Verdict verdict;
    RowSet rows;
};

using OutcomePointer = std::shared_ptr<const Outcome>;

}  // namespace commtest
