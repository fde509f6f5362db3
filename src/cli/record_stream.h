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
    // The file of that name begins anew with the first block; none if the name is empty. A Problem if it
    // cannot be written.
    RecordStream(Console& console, bool showsBlocks, const QString& fileName);

    void Add(TextView block);

    // False once the file or the results take no more.
    bool Flush();

    // The last flush; a Problem if the file could not be written.
    void Finish();

  private:
    void WriteToFile(const std::string& blocks);
    bool FileIsGood() const;

    Console& console_;
    bool showsBlocks_;
    QFile file_;
    bool hasBegun_ = false;  // the file
    std::string waiting_;
};

}  // namespace commtest
