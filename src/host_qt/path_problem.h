#pragma once

#include <QString>

#include "runtime/runtime_error.h"

namespace commtest {

// What is wanted of a path. A folder that is to be made may lack the folders above it.
enum class PathUse { Reading, Writing, MakingFolder };

// What keeps the program from a file or folder, on the way to it or in its place, in one line for the user;
// empty where nothing is in the way. A file that is just not there is none of it.
QString ObstacleTo(PathUse use, const QString& path);

// The same of the number that a failed call of the system has left; empty for 0.
QString WordsOnSystemError(int error);

// What is in the way, else what the system said.
QString ReasonOfFailure(PathUse use, const QString& path, int error);

// A run-time error of a file, with its reason.
class FileTrouble : public RuntimeError {
  public:
    FileTrouble(int number, QString reason) : RuntimeError(number), reason_(std::move(reason)) {}

    const QString& Reason() const { return reason_; }  // may be empty

  private:
    QString reason_;
};

// The reason of such an error, else the message of the error.
QString ReasonOf(const RuntimeError& error);

}  // namespace commtest
