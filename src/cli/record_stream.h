#pragma once

#include <QFile>
#include <QString>
#include <string>

#include "cli/console.h"

namespace commtest {

// The blocks of the record on their way out, oldest first: to the results, to a file, to both or to neither.
// They wait here until Flush, a few of them at a time.
class RecordStream {
  public:
    // Begins the file of that name anew, none if the name is empty; a Problem if it cannot be written.
    RecordStream(Console& console, bool showsBlocks, const QString& fileName);

    void Add(TextView block);

    // False once the file takes no more.
    bool Flush();

    // The last flush; a Problem if anything could not be written.
    void Finish();

  private:
    Console& console_;
    bool showsBlocks_;
    QFile file_;
    std::string waiting_;
};

}  // namespace commtest
