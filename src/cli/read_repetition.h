#pragma once

#include "cli/console.h"
#include "cli/line_session.h"

namespace commtest {

// Sends a read again that brought no good reply, at most so many times in a row; each time is an exchange of
// its own, and told with its reason, but for a port that has gone, which is told already. Tests of the line
// are no reads.
class ReadRepetition {
  public:
    ReadRepetition(LineSession& line, int most, Console& console)
        : line_(line), most_(most), console_(console) {}

    // In front of what may be the tick of the next frame.
    void BeforeFrame();

    // An exchange is over, or its port has gone.
    void Note(const Outcome& outcome);
    void NoteLoss();

    // A repetition is due.
    bool IsDue() const { return isDue_; }
    int Count() const { return count_; }
    // An exchange has failed that no repetition mended.
    bool HasFailed() const { return hasFailed_ || isDue_; }

  private:
    // What a builder of a read or the end of an exchange moves.
    struct Place {
        std::int32_t command = 0;
        std::int16_t row = 0;
        HexText frame;
        Text frameCommand;
        Text attribute;
    };

    bool MayRepeat() const;
    void Repeat();

    LineSession& line_;
    int most_;
    Console& console_;
    Place place_;  // in front of the frame
    int inARow_ = 0;
    int count_ = 0;
    bool isDue_ = false;
    bool isUnderWay_ = false;
    bool hasFailed_ = false;
};

}  // namespace commtest
