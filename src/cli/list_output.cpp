#include "cli/list_output.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>

#include "cli/output_file.h"
#include "host/file_names.h"
#include "host_qt/path_problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kListOutputOption = {
    u"output", u"文件|-", u"写入这个文件，原有的表被取代；- 为标准输出；默认追加到程序文件夹中的文件"};

namespace {

TextView UsualNameOf(OutputKind kind) {
    return kind == OutputKind::ParameterList ? kListCopyFileName : kChannelTableFileName;
}

}  // namespace

std::optional<QString> OutputNamed(const Arguments& arguments) {
    if (!arguments.Has(kListOutputOption.name)) return std::nullopt;
    return arguments.Value(kListOutputOption.name);
}

ListOutput::ListOutput(OutputKind kind, const std::optional<QString>& named, FolderFiles& files,
                       Console& console)
    : console_(console) {
    if (named == u"-"_s) return;
    if (named) {
        path_ = QDir().absoluteFilePath(*named);
        OpenAnew(kind, files.Folder());
        return;
    }
    const Text usual(UsualNameOf(kind));
    path_ = QString::fromStdU16String(files.PathOf(usual));
    try {
        appended_ = files.OpenForAppend(usual);
    } catch (const RuntimeError& error) {
        throw CannotWrite(path_, ReasonOf(error));
    }
}

void ListOutput::OpenAnew(OutputKind kind, const QString& programFolder) {
    RequireOwnOutput({path_, kind, programFolder});
    anew_ = std::make_unique<QSaveFile>(path_);
    errno = 0;
    if (!anew_->open(QIODevice::WriteOnly)) {
        throw CannotWrite(path_, ReasonOfFailure(PathUse::Writing, path_, errno));
    }
}

void ListOutput::Write(const std::string& bytes) {
    const auto size = static_cast<std::int64_t>(bytes.size());
    growth_ += size;
    if (IsResults()) return console_.Print(bytes);
    if (anew_ != nullptr) {
        errno = 0;
        if (anew_->write(bytes.data(), size) != size) throw CannotWrite(path_, WordsOnSystemError(errno));
        return;
    }
    try {
        appended_->Write(bytes);
    } catch (const RuntimeError& error) {
        throw CannotWrite(path_, ReasonOf(error));
    }
}

void ListOutput::Finish() {
    if (IsResults()) return;
    errno = 0;
    if (anew_ != nullptr && !anew_->commit()) {
        throw CannotWrite(path_, ReasonOfFailure(PathUse::Writing, path_, errno));
    }
    appended_.reset();
    size_ = QFileInfo(path_).size();
}

QString ListOutput::Words() const {
    if (anew_ != nullptr) return u"已写入 %1，%2 字节"_s.arg(path_).arg(size_);
    return u"已追加到 %1，增加 %2 字节，现为 %3 字节"_s.arg(path_).arg(growth_).arg(size_);
}

}  // namespace commtest
