#pragma once

#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"

namespace commtest {

class MainForm;

// Rows of a protocol with writes that are commands: what is sent to them acts at once (恢复出厂设置).
bool IsCommandRow(const MainForm& form, int row);

// One without limits has no data.
bool IsCommandWithoutData(const MainForm& form, int row);

extern const Option kCommandConsentOption;

// Asks for each command among the rows at a terminal; a script says yes beforehand. A Problem of bad usage
// without it.
void RequireConsentToCommands(const MainForm& form, const std::vector<int>& rows, const Arguments& arguments,
                              Console& console);

}  // namespace commtest
