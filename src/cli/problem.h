#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace commtest {

enum class ExitStatus {
    Good = 0,
    // The instrument: a reply failed under --strict, a write was refused or reads back differently, a
    // run-time error has ended the polling.
    BadAnswer = 1,
    // A list: it was taken, written or looked through, but not all of it is good.
    BadRows = BadAnswer,
    // The command line: its words, or names and rows that the catalogue does not have.
    BadUsage = 2,
    // The port, the catalogue or a file cannot be opened, or has gone.
    NoAccess = 3,
    // Nobody reads the results any more, as behind a reader that had enough: no line, and the program ends by
    // the signal of the broken pipe.
    NoReader = 141,
};

// Ends a verb: one line for the user, which says what is wrong and what to do; empty if the user was told
// already.
class Problem : public std::exception {
  public:
    Problem(ExitStatus status, QString line) : status_(status), line_(std::move(line)) {}

    ExitStatus Status() const { return status_; }
    const QString& Line() const { return line_; }

    const char* what() const noexcept override { return "problem of the command line"; }

  private:
    ExitStatus status_;
    QString line_;
};

}  // namespace commtest
