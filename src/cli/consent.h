#pragma once

#include <QString>

#include "cli/arguments.h"
#include "cli/console.h"

namespace commtest {

// What changes the catalogue is asked for at a terminal; a script says yes beforehand.
extern const Option kYesOption;

// A Problem where nobody can be asked and the option is missing.
void RequireConsent(const Arguments& arguments, const Console& console);

// A Problem where the answer is not yes.
void AskForConsent(Console& console, TextView question);

// Takes what comes before a change: a Problem on the way says that the catalogue is as it was.
template <typename Step>
auto BeforeAnyChange(Step&& step) {
    try {
        return step();
    } catch (const Problem& problem) {
        throw Problem(problem.Status(), problem.Line() + QStringLiteral("。目录没有改变"));
    }
}

}  // namespace commtest
