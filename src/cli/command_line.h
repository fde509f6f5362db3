#pragma once

#include <QStringList>

#include "cli/console.h"

namespace commtest {

// Runs the verb that the words name and gives the exit status of the program. A problem is told in one line.
int RunCommandLine(const QStringList& words, Console& console);

}  // namespace commtest
