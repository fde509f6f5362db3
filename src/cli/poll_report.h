#pragma once

#include <string>

#include "cli/line_options.h"
#include "cli/table.h"

namespace commtest {

class MainForm;

// The grid's rows that hold a parameter, columns 0 to 9.
Table GridTable(const MainForm& form);

// What a poll ends with: the grid and the statistics. CSV has two tables, the grid first, with an empty line
// between them.
std::string PollReport(MainForm& form, const LineOptions& options, int exchanges, Format format);

}  // namespace commtest
