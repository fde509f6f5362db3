#include "cli/list_output.h"

#include <QDir>
#include <QFileInfo>

#include "cli/output_file.h"
#include "host/file_names.h"
#include "runtime/runtime_error.h"

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
        throw CannotWrite(QString::fromStdU16String(error.StandardMessage()));
    }
}

void ListOutput::OpenAnew(OutputKind kind, const QString& programFolder) {
    RequireOwnOutput({path_, kind, programFolder});
    anew_ = std::make_unique<QSaveFile>(path_);
    if (!anew_->open(QIODevice::WriteOnly)) throw CannotWrite(anew_->errorString());
}

Problem ListOutput::CannotWrite(const QString& why) const {
    return {ExitStatus::NoAccess, u"%1 写不进去: %2。请检查文件名、权限和磁盘空间"_s.arg(path_, why)};
}

void ListOutput::Write(const std::string& bytes) {
    const auto size = static_cast<std::int64_t>(bytes.size());
    growth_ += size;
    if (IsResults()) return console_.Print(bytes);
    if (anew_ != nullptr) {
        if (anew_->write(bytes.data(), size) != size) throw CannotWrite(anew_->errorString());
        return;
    }
    try {
        appended_->Write(bytes);
    } catch (const RuntimeError& error) {
        throw CannotWrite(QString::fromStdU16String(error.StandardMessage()));
    }
}

void ListOutput::Finish() {
    if (IsResults()) return;
    if (anew_ != nullptr && !anew_->commit()) throw CannotWrite(anew_->errorString());
    appended_.reset();
    size_ = QFileInfo(path_).size();
}

QString ListOutput::Words() const {
    if (anew_ != nullptr) return u"已写入 %1，%2 字节"_s.arg(path_).arg(size_);
    return u"已追加到 %1，增加 %2 字节，现为 %3 字节"_s.arg(path_).arg(growth_).arg(size_);
}

}  // namespace commtest
