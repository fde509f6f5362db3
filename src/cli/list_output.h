#pragma once

#include <QSaveFile>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/earlier_output.h"
#include "host_qt/folder_files.h"

namespace commtest {

extern const Option kListOutputOption;

// Where a list goes: to the end of its file in the program folder, into a file named, which then holds
// nothing else, or to the results ("-"). What cannot be written is a Problem.
class ListOutput {
  public:
    // A parameter list or a channel table, which is appended to its own file of the program folder. A file
    // named that is there has to be one of its kind, or empty.
    ListOutput(OutputKind kind, const std::optional<QString>& named, FolderFiles& files, Console& console);

    void Write(const std::string& bytes);

    // Behind the last bytes. A file named is replaced only now.
    void Finish();

    bool IsResults() const { return path_.isEmpty(); }
    const QString& Path() const { return path_; }  // empty for the results
    std::int64_t Growth() const { return growth_; }
    std::int64_t Size() const { return size_; }  // once it has finished

    // Where it stands and how long the file has grown.
    QString Words() const;

  private:
    void OpenAnew(OutputKind kind, const QString& programFolder);

    Console& console_;
    QString path_;
    std::unique_ptr<GrowingFile> appended_;
    std::unique_ptr<QSaveFile> anew_;
    std::int64_t growth_ = 0;
    std::int64_t size_ = 0;
};

// The value of the option; nothing without it.
std::optional<QString> OutputNamed(const Arguments& arguments);

}  // namespace commtest
