#pragma once

#include <QDateTime>
#include <QString>
#include <chrono>
#include <optional>

#include "cli/line_session.h"
#include "cli/run_output.h"

namespace commtest {

// Which operation is polled.
struct ReadingOptions {
    int command = 0;
    Text groupLength;  // ConDataNub
};

const OptionList& ReadingOptionList();
ReadingOptions ReadingOptionsOf(const Arguments& arguments);
void ChooseReading(MainForm& form, const ReadingOptions& options);

// When a run of the polling ends, and what is told of it.
struct RunOptions {
    int exchanges = 0;                      // 0: no end
    std::chrono::milliseconds duration{0};  // 0: no end
    OutputOptions output;
    std::optional<QDateTime> until;  // none: no end
    int retries = 0;                 // of a read that failed
    bool reconnects = false;         // waits for a port that has gone
    bool isStrict = false;
};

const OptionList& RunOptionList();
RunOptions RunOptionsOf(const Arguments& arguments);

// Polls to the end that the options set, or that the user, the port or an error brings, and prints the
// record, the grid and the statistics. `shown` is what JSON says of the line, but for the
// address, which is that of the session.
ExitStatus PollAndReport(LineSession& line, const LineOptions& shown, const RunOptions& options,
                         Console& console);

}  // namespace commtest
