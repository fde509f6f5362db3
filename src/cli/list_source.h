#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "host/byte_reader.h"
#include "host/program_files.h"

namespace commtest {

// A list or template that is read: the file named, which may stand anywhere, or the one of that name in the
// program folder. Only a file that can be read twice is one.
class ListSource {
  public:
    ListSource(const ProgramFiles& files, const std::optional<QString>& named, TextView usual);

    const QString& Path() const { return path_; }

    // A Problem where there is no such file.
    std::unique_ptr<ByteReader> Open() const;

  private:
    const ProgramFiles& files_;
    QString path_;
};

}  // namespace commtest
