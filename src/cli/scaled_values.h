#pragma once

#include <vector>

#include "runtime/text.h"

namespace commtest {

class MainForm;
struct Outcome;

// Column 9 of the grid, of which the session knows the decimals only once their row has been read: until then
// a value has none, and one that came too early is scaled as soon as they are there.
class ScaledValues {
  public:
    // An exchange is over.
    void Note(const MainForm& form, const Outcome& outcome);

    // "未定" (kUndecided) where the decimals are not known.
    Text Of(const MainForm& form, int row) const;

  private:
    struct RowState {
        bool isRead = false;
        bool isEarly = false;  // came before its decimals
    };

    RowState StateOf(int row) const;

    std::vector<RowState> rows_;  // as many as were needed
};

}  // namespace commtest
