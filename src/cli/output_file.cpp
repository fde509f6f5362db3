#include "cli/output_file.h"

#include <QDir>
#include <QFileInfo>
#include <array>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "host/file_names.h"
#include "host_qt/path_problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

namespace {

constexpr int kMostLinks = 40;

constexpr std::array kOwnNames = {kErrorFileName,    kListFileName,     kListCopyFileName,
                                  kTemplateFileName, kServerFileName,   kHelpFileName,
                                  kUpdaterFileName,  kRecordFolderName, kChannelTableFileName};
// Whatever stands behind them.
constexpr std::array kOwnBeginnings = {kCatalogueFileName, kKeptErrorFileStem};

QString Shown(TextView text) { return QString::fromUtf16(text.data(), std::ssize(text)); }

// Also of a link that leads nowhere yet.
QString RealPath(const QString& path) {
    std::error_code ignored;
    fs::path real = path.toStdString();
    for (int links = 0; links < kMostLinks && fs::is_symlink(real, ignored); ++links) {
        real = real.parent_path() / fs::read_symlink(real, ignored);
    }
    const fs::path whole = fs::weakly_canonical(fs::absolute(real), ignored);
    return QString::fromStdString((whole.empty() ? fs::absolute(real) : whole).string());
}

bool IsUsualName(const QString& name, OutputKind kind) {
    if (kind == OutputKind::ParameterList)
        return name == Shown(kListCopyFileName) || name == Shown(kListFileName);
    return kind == OutputKind::ChannelTable && name == Shown(kChannelTableFileName);
}

bool IsNameOfProgram(const QString& path, const OutputName& output) {
    const QFileInfo file(path);
    if (output.programFolder.isEmpty() || file.path() != RealPath(output.programFolder)) return false;
    const QString name = file.fileName();
    if (IsUsualName(name, output.kind)) return false;
    const auto isName = [&name](TextView own) { return name == Shown(own); };
    const auto isBeginning = [&name](TextView own) { return name.startsWith(Shown(own)); };
    return std::any_of(kOwnNames.begin(), kOwnNames.end(), isName) ||
           std::any_of(kOwnBeginnings.begin(), kOwnBeginnings.end(), isBeginning);
}

Problem Refused(const QString& line) {
    return {ExitStatus::BadUsage, line + u"，没有改动。请给出另一个文件名"_s};
}

bool IsStream(const QString& path) {
    std::error_code ignored;
    const fs::file_status status = fs::status(path.toStdString(), ignored);
    return fs::is_fifo(status) || fs::is_character_file(status);
}

bool MayBeReplaced(OutputKind kind, const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile()) return false;
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        throw Refused(u"%1 读不出来: %2"_s.arg(path, ReasonOfFailure(PathUse::Reading, path, errno)));
    }
    return file.size() == 0 || IsEarlierOutput(kind, file);
}

}  // namespace

Problem CannotWrite(const QString& path, const QString& reason) {
    return {ExitStatus::NoAccess, u"%1 写不进去: %2"_s.arg(path, reason)};
}

void RequireOwnOutput(const OutputName& name) {
    const QString path = RealPath(name.path);
    if (IsNameOfProgram(path, name)) throw Refused(u"%1 是程序自己用的文件"_s.arg(name.path));
    if (!QFileInfo::exists(path) || IsStream(path)) return;
    if (QFileInfo(path).isDir()) throw Refused(u"%1 是文件夹，不是文件"_s.arg(name.path));
    if (!MayBeReplaced(name.kind, path)) {
        throw Refused(u"%1 已存在，不是%2"_s.arg(name.path, NameOf(name.kind)));
    }
}

bool IsSameFile(const QString& one, const QString& other) { return RealPath(one) == RealPath(other); }

OutputFile::OutputFile(const OutputName& name)
    : file_(name.path), beginsAnew_(!name.goesOnBehind && !IsStream(name.path)) {
    if (name.path.isEmpty()) return;
    RequireOwnOutput(name);
    const auto end = IsStream(name.path) ? QIODevice::WriteOnly : QIODevice::Append;
    errno = 0;
    if (file_.open(end | QIODevice::Unbuffered)) return;
    throw CannotWrite(name.path, ReasonOfFailure(PathUse::Writing, name.path, errno));
}

void OutputFile::Write(const std::string& bytes) {
    if (!file_.isOpen() || bytes.empty() || !IsGood()) return;
    if (std::exchange(beginsAnew_, false)) file_.resize(0);
    const auto size = static_cast<qint64>(bytes.size());
    errno = 0;
    if (file_.write(bytes.data(), size) == size) return;
    failure_ = errno == 0 ? file_.errorString() : WordsOnSystemError(errno);
}

void OutputFile::Finish() {
    if (!IsGood()) throw CannotWrite(file_.fileName(), failure_);
}

}  // namespace commtest
