#include "cli/list_source.h"

#include <QDir>
#include <QFileInfo>

#include "cli/list_words.h"
#include "cli/problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

ListSource::ListSource(const ProgramFiles& files, const std::optional<QString>& named, TextView usual)
    : files_(files),
      path_(named ? QDir().absoluteFilePath(*named) : QString::fromStdU16String(files.PathOf(Text(usual)))) {}

std::unique_ptr<ByteReader> ListSource::Open() const {
    const QFileInfo file(path_);
    if (file.exists() && !file.isFile()) {
        throw Problem(ExitStatus::NoAccess, u"%1 不是普通文件，读不了两遍。请给出文件"_s.arg(path_));
    }
    try {
        return files_.OpenBytes(path_.toStdU16String());
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, WordsOnListError(error, path_, 0));
    }
}

}  // namespace commtest
