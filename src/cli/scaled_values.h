#pragma once

#include <set>

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
    void NoteRow(const MainForm& form, int row);

    std::set<int> read_;   // rows
    std::set<int> early_;  // rows that came before their decimals
};

}  // namespace commtest
