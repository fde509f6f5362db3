#pragma once

#include <QFile>
#include <QString>
#include <string>

#include "cli/earlier_output.h"
#include "cli/problem.h"

namespace commtest {

// A file that an option names to be written.
struct OutputName {
    QString path;  // none: nothing is written
    OutputKind kind = OutputKind::Record;
    QString programFolder;
    bool goesOnBehind = false;  // what stands in it stays
};

// Nothing of the user's is overwritten: a Problem for a folder, for a name that the program itself uses in
// its folder (but the usual one of a list or table, for such), and for a file that is neither empty nor the
// output of an earlier call. Links are looked through; a pipe and a device of characters are taken as they
// are.
void RequireOwnOutput(const OutputName& name);

// The line on a file that cannot be written, with its reason.
Problem CannotWrite(const QString& path, const QString& reason);

// The same file, through whatever links.
bool IsSameFile(const QString& one, const QString& other);

// What stands in the file goes with the first bytes, not before there are any.
class OutputFile {
  public:
    // A Problem as above, or where it cannot be written. Without a path it takes everything and writes
    // nothing.
    explicit OutputFile(const OutputName& name);

    bool IsOpen() const { return file_.isOpen(); }
    void Write(const std::string& bytes);
    bool IsGood() const { return failure_.isEmpty(); }

    // A Problem if not all of it could be written.
    void Finish();

  private:
    QFile file_;
    bool beginsAnew_;
    QString failure_;  // why not all of it could be written
};

}  // namespace commtest
