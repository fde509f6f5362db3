#pragma once

#include <initializer_list>

#include "runtime/text.h"

// How an explainer writes: rows of a table, each of fixed texts and the values of this conversion in turn.
namespace commtest {

// One row, its pieces side by side.
class Step {
  public:
    Step(std::initializer_list<TextView> pieces);

    const Text& Words() const { return words_; }

  private:
    Text words_;
};

// Append rows: a step has a blank line behind it, a line its line end, the last words have nothing.
void AppendSteps(Text& explanation, std::initializer_list<Step> steps);
void AppendLines(Text& explanation, std::initializer_list<Step> lines);
void AppendLastWords(Text& explanation, const Step& words);

}  // namespace commtest
