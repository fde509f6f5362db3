#pragma once

#include <vector>

#include "commissioning/write_check.h"
#include "session/exchange.h"

namespace commtest {

class MainForm;

// What has become of a value that was to be written.
enum class WriteOutcome {
    Held,         // nothing has left
    UnderWay,     // the frame has left, or is about to
    Sent,         // answered; the row has not been read since, or cannot be read or compared
    Equal,        // read back as the same number
    Different,    // read back as another one
    Refused,      // by the instrument: `answer` holds its reason
    Unconfirmed,  // no answer that could be relied on, and no read back
};

// Writing one value into one row of the parameter grid, and proving it. It sends nothing by itself: the frame
// leaves with the polling, and whoever polls hands each outcome to NoteOutcome.
class ParameterWrite {
  public:
    ParameterWrite(int theRow, Text theValue) : row_(theRow), value_(std::move(theValue)) {}

    int Row() const { return row_; }
    const Text& Value() const { return value_; }
    const WriteCheck& Check() const { return check_; }
    WriteOutcome State() const { return state_; }
    const Text& ReadBack() const { return readBack_; }       // the value shown; empty before it is read
    const OutcomePointer& Reply() const { return answer_; }  // to the frame; none before there is one

    // Judges the value anew.
    void Judge(const MainForm& form) { check_ = CheckWrite(form, row_, value_); }

    // The user's own way to a write: a click on the cell, the entry, Enter. A write in two steps is entered
    // once for each; another half is then pending behind the answer to the first. Errors of the builder,
    // which leave it held.
    void Enter(MainForm& form);
    // The same where the user has made the entry himself: its frame is the one to send.
    void NoteEntry(const MainForm& form);
    bool HasHalfToCome(const MainForm& form) const;

    // An exchange is over: the answer to the frame, or a read of the row of that instrument, which decides
    // anew each time.
    void NoteOutcome(const MainForm& form, const OutcomePointer& outcome);

    // Whether an answer has come that says the value was taken.
    bool IsAnswered() const;

    // A read that should have decided has not come: the write is not confirmed.
    void SettleWithoutRead();

    // No answer can come any more: the write is not confirmed, unless a read decides.
    void SettleWithoutAnswer();
    bool CanBeAnswered(const MainForm& form) const;

    // Whether a read of the row can decide.
    bool CanBeReadBack(const MainForm& form) const;

  private:
    void NoteAnswer(const OutcomePointer& outcome);
    void NoteRead(const MainForm& form);

    int row_;
    Text value_;
    WriteCheck check_;
    HexText frame_;
    Text addressText_;  // of the instrument
    OutcomePointer answer_;
    Text readBack_;
    WriteOutcome state_ = WriteOutcome::Held;
};

// Sets the polling to the single read of a row, as a click on its cell does.
void ReadRowNext(MainForm& form, int row);

}  // namespace commtest
