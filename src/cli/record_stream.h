#pragma once

#include <string>

#include "cli/console.h"
#include "cli/output_file.h"

namespace commtest {

// The blocks of the record on their way out, oldest first: to the results, to a file, to both or to neither.
// A few of them wait here, at the longest until Flush.
class RecordStream {
  public:
    // A Problem if the file is not to be written, or cannot be.
    RecordStream(Console& console, bool showsBlocks, const OutputName& file);

    void Add(TextView block);

    // False once the file or the results take no more.
    bool Flush();

    // The last flush; a Problem if the file could not be written.
    void Finish();

  private:
    void HandOn();

    Console& console_;
    bool showsBlocks_;
    OutputFile file_;
    std::string waiting_;
    bool awaitsFlush_ = false;  // the results
};

}  // namespace commtest
