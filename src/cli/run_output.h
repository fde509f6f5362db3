#pragma once

#include <vector>

#include "cli/line_session.h"
#include "cli/output_file.h"
#include "cli/record_stream.h"
#include "cli/scaled_values.h"
#include "cli/table.h"

namespace commtest {

// What a run of the polling tells, and where.
struct OutputOptions {
    Format format = Format::Plain;
    OutputName record;
    OutputName statistics;
    OutputName trace;
    QString rows;                // words between commas; none: all
    bool hasTimeStamps = false;  // the record
};

const OptionList& OutputOptionList();
OutputOptions OutputOptionsOf(const Arguments& arguments);

// The record and the exchanges as they come, the values and the statistics at the end.
class RunOutput {
  public:
    // A Problem for a row that the instrument does not have and for a file that is not to be written.
    // `shown` is what the report says of the line, but for the address, which is that of the session.
    RunOutput(LineSession& line, const LineOptions& shown, const OutputOptions& options, Console& console);
    RunOutput(const RunOutput&) = delete;
    RunOutput& operator=(const RunOutput&) = delete;

    // To be told of each exchange as it ends.
    void AddExchange(const Outcome& outcome);

    // Hands on what waits; false once a file or the results take no more.
    bool Flush();

    // Behind the end of the run. A Problem where a file could not be written.
    void Finish();

  private:
    void AddBlock(const RecordBlock& block);
    void PrintReport();

    LineSession& line_;
    LineOptions shown_;
    OutputOptions options_;
    Console& console_;
    std::vector<int> rows_;
    RecordStream record_;
    OutputFile statistics_;
    OutputFile trace_;
    ScaledValues scaled_;
};

}  // namespace commtest
