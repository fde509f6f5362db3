#pragma once

#include <string>
#include <vector>

#include "cli/line_options.h"
#include "cli/statistics.h"
#include "cli/table.h"

namespace commtest {

class MainForm;
class ScaledValues;

// What of the session is reported, and how.
struct ReportedRows {
    std::vector<int> rows;  // all where there is none
    const ScaledValues& scaled;
};

// The grid's rows that hold a parameter, columns 0 to 9.
Table GridTable(const MainForm& form, const ReportedRows& reported);

// What a poll ends with as one object: line, grid, statistics, and what ended it where that was the
// instrument.
std::string PollReport(const MainForm& form, const LineOptions& options, const Statistics& statistics,
                       const ReportedRows& reported);

}  // namespace commtest
