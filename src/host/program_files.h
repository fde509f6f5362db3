#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/byte_reader.h"
#include "runtime/text.h"

namespace commtest {

struct FileText {
    Text text;
    bool isEndOnly = false;
};

// The lines of a text file, of which no more than one is held at a time.
class LineReader {
  public:
    virtual ~LineReader() = default;

    // The next line without its line end (CR LF or LF); nothing behind the last one.
    virtual std::optional<Text> Next() = 0;
};

// A file that grows at its end; closed when this goes.
class GrowingFile {
  public:
    virtual ~GrowingFile() = default;

    // Bytes of code page 936, which are on the disk at once; error 52 if they cannot be written.
    virtual void Write(const std::string& bytes) = 0;
};

// The files beside the program: all of them stand in the one program folder. Names are relative to it, with
// "/" between folders. What is read as text is code page 936 or UTF-8, the whole file in one of them; error
// 53 if there is no such file.
class ProgramFiles {
  public:
    virtual ~ProgramFiles() = default;

    virtual bool Exists(const Text& name) const = 0;

    // Full path of a file, whether it exists or not.
    virtual Text PathOf(const Text& name) const = 0;

    // Line ends as they stand; a rich-text file as its plain text.
    virtual Text ReadWhole(const Text& name) const = 0;

    // The same; of a plain text longer than a megabyte so much of its end, from the beginning of a line on.
    virtual FileText ReadEnd(const Text& name) const = 0;

    virtual std::unique_ptr<LineReader> ReadLines(const Text& name) const = 0;

    // Error 52 if it cannot be read.
    virtual std::unique_ptr<ByteReader> OpenBytes(const Text& name) const = 0;

    // The names of the files in the program folder itself that begin so, in the order of their texts.
    virtual std::vector<Text> NamesBeginning(const Text& beginning) const = 0;

    // Error 52 if it cannot be removed.
    virtual void Remove(const Text& name) = 0;

    // Error 52 if it cannot be renamed, also where the new name is taken.
    virtual void Rename(const Text& name, const Text& newName) = 0;

    // A missing file is made. Error 76 if its folder is missing.
    virtual std::unique_ptr<GrowingFile> OpenForAppend(const Text& name) = 0;

    // Writes `text` as a rich-text file. Error 76 if its folder is missing.
    virtual void SaveRichText(const Text& name, const Text& text) = 0;

    // The error file, one handle, opened for append. Opening it while it is open does nothing.
    void OpenErrorFile();
    void CloseErrorFile() { errorFile_.reset(); }  // closed already: nothing
    bool ErrorFileIsOpen() const { return errorFile_ != nullptr; }

    // As GrowingFile::Write; error 52 also if the file is not open.
    void WriteToErrorFile(const std::string& bytes);

    virtual void EmptyErrorFile() = 0;

    // Copies the error file beside it, named by a moment that sorts as its text does; a name that is taken
    // gets
    // "-2" behind it. Of the copies the last three stay. The name of the new one; error 53 if there is no
    // error file, error 52 if the copy cannot be written.
    virtual Text KeepErrorFile(const Text& moment) = 0;
    static constexpr int kKeptErrorFiles = 3;

  private:
    std::unique_ptr<GrowingFile> errorFile_;
};

}  // namespace commtest
