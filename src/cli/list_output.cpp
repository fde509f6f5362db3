#include "cli/list_output.h"

#include <QDir>
#include <QFileInfo>

#include "catalogue/channel_table.h"
#include "host/file_names.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kListOutputOption = {
    u"output", u"文件|-", u"写入这个文件，原有的表被取代；- 为标准输出；默认追加到程序文件夹中的文件"};

namespace {

constexpr qint64 kLongestHead = 64;  // bytes

TextView UsualNameOf(ListKind kind) {
    return kind == ListKind::ParameterList ? kListCopyFileName : kChannelTableFileName;
}

QStringView NameOf(ListKind kind) { return kind == ListKind::ParameterList ? u"参数表" : u"通道表"; }

bool BeginsLikeList(QFile& file) {
    const QByteArray head = file.peek(kLongestHead).toUpper();
    return head.startsWith("DEVICE ") || head.split('\n').constFirst().trimmed() == "END";
}

// Whole lines, as many for each channel.
bool HasLinesOfChannels(QFile& file) {
    qint64 lines = 0;
    while (!file.atEnd()) {
        if (!file.readLine().endsWith("\r\n")) return false;
        ++lines;
    }
    return lines % kChannels == 0;
}

bool MayBeReplaced(ListKind kind, const QString& path) {
    QFile file(path);
    if (!file.exists()) return true;
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false;
    if (file.size() == 0) return true;
    return kind == ListKind::ParameterList ? BeginsLikeList(file) : HasLinesOfChannels(file);
}

}  // namespace

std::optional<QString> OutputNamed(const Arguments& arguments) {
    if (!arguments.Has(kListOutputOption.name)) return std::nullopt;
    return arguments.Value(kListOutputOption.name);
}

ListOutput::ListOutput(ListKind kind, const std::optional<QString>& named, ProgramFiles& files,
                       Console& console)
    : console_(console) {
    if (named == u"-"_s) return;
    if (named) {
        path_ = QDir().absoluteFilePath(*named);
        OpenAnew(kind);
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

void ListOutput::OpenAnew(ListKind kind) {
    if (!MayBeReplaced(kind, path_)) {
        throw Problem(ExitStatus::BadUsage,
                      u"%1 已存在，不是%2，没有改动。请给出另一个文件名"_s.arg(path_, NameOf(kind)));
    }
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
