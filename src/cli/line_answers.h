#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "cli/console.h"
#include "cli/json_text.h"
#include "cli/problem.h"
#include "cli/table.h"
#include "runtime/text.h"

namespace commtest {

// What a verb makes of one text.
struct LineAnswer {
    Text result;
    Text problem;  // why there is no result; empty if there is one
    Text explanation;
    std::vector<Text> notes;
    std::vector<Text> members = {};  // where the form has headings of its own
};

// How answers are printed.
struct AnswerForm {
    Format format = Format::Plain;
    bool isExplained = false;             // explanation and notes stand behind the result
    std::vector<TextView> headings = {};  // of the members that CSV and JSON have in place of the result
};

// Prints answers as they come, a result a line, CSV behind a line of headings, JSON as an array with an
// object an answer. Where there is a problem, the result stands empty; JSON has the problem in its place.
class AnswerPrinter {
  public:
    AnswerPrinter(Console& console, const AnswerForm& form);

    void Add(const Text& input, const LineAnswer& answer);
    void Finish();

  private:
    Console& console_;
    AnswerForm form_;
    JsonWriter json_{kJsonLineAnElement};
    bool hasAnswers_ = false;
};

using AnswerOf = std::function<LineAnswer(const Text& input)>;

// Answers the one text, whose problem is one of bad usage, or without it each line of the console's input as
// it comes: a problem is told with the number of its line, the other lines are answered, and the status is
// bad usage. `expected` tells a user who types what a line is.
ExitStatus AnswerTexts(const std::optional<QString>& text, const QString& expected, const AnswerForm& form,
                       Console& console, const AnswerOf& answerOf);

}  // namespace commtest
