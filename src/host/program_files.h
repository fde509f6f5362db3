#pragma once

#include <string>

#include "runtime/text.h"

namespace commtest {

struct FileText {
    Text text;
    bool isEndOnly = false;
};

// The files beside the program: all of them stand in the one program folder. Names are relative to it, with
// "/" between folders.
class ProgramFiles {
  public:
    virtual ~ProgramFiles() = default;

    virtual bool Exists(const Text& name) const = 0;

    // Full path of a file, whether it exists or not.
    virtual Text PathOf(const Text& name) const = 0;

    // A text file, code page 936 or UTF-8, line ends as they stand; of one longer than a megabyte only the
    // end, so much of it. A rich-text file is read whole and as its plain text. Error 53 if there is none.
    virtual FileText ReadText(const Text& name) const = 0;

    // Writes `text` as a rich-text file. Error 76 if its folder is missing.
    virtual void SaveRichText(const Text& name, const Text& text) = 0;

    // The error file, one handle, opened for append. Opening it while it is open does nothing; a missing file
    // is made. Error 76 if its folder is missing.
    virtual void OpenErrorFile() = 0;
    virtual void CloseErrorFile() = 0;  // closed already: nothing
    virtual bool ErrorFileIsOpen() const = 0;

    // Appends bytes of code page 936; error 52 if the file is not open.
    virtual void WriteToErrorFile(const std::string& bytes) = 0;

    virtual void EmptyErrorFile() = 0;
};

}  // namespace commtest
