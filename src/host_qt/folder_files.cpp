#include "host_qt/folder_files.h"

#include <QDir>
#include <QFileInfo>

#include "host/file_names.h"
#include "runtime/code_page.h"
#include "runtime/rich_text.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

constexpr qint64 kLongestText = 1024 * 1024;  // bytes; of a longer file its end is read
constexpr qint64 kLongestMark = 16;           // bytes; the beginning of a file, which tells its kind

std::string_view View(const QByteArray& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

void OpenForWriting(QFile& file, QIODevice::OpenMode mode) {
    if (file.open(QIODevice::WriteOnly | mode)) return;
    const bool hasFolder = QFileInfo(file).dir().exists();
    throw RuntimeError(hasFolder ? RuntimeError::kBadFile : RuntimeError::kPathNotFound);
}

void Write(QFile& file, const std::string& bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    if (file.write(bytes.data(), size) != size || !file.flush()) throw RuntimeError(RuntimeError::kBadFile);
}

// A cut may go through a character: the text then begins behind the first line end.
QByteArray EndOf(QFile& file) {
    file.seek(file.size() - kLongestText);
    const QByteArray bytes = file.readAll();
    return bytes.mid(bytes.indexOf('\n') + 1);
}

}  // namespace

FolderFiles::FolderFiles(const QString& folder)
    : folder_(QDir(folder).absolutePath()), errorFile_(FullPath(Text(kErrorFileName))) {}

QString FolderFiles::FullPath(const Text& name) const {
    return QDir(folder_).filePath(QString::fromStdU16String(name));
}

bool FolderFiles::Exists(const Text& name) const { return QFile::exists(FullPath(name)); }

Text FolderFiles::PathOf(const Text& name) const { return FullPath(name).toStdU16String(); }

FileText FolderFiles::ReadText(const Text& name) const {
    QFile file(FullPath(name));
    if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(RuntimeError::kFileNotFound);
    if (IsRichText(View(file.peek(kLongestMark)))) return {PlainTextOf(View(file.readAll())), false};
    const bool isLong = file.size() > kLongestText;
    return {FromFileBytes(View(isLong ? EndOf(file) : file.readAll())), isLong};
}

void FolderFiles::SaveRichText(const Text& name, const Text& text) {
    QFile file(FullPath(name));
    OpenForWriting(file, QIODevice::Truncate);
    Write(file, RichTextOf(text));
}

void FolderFiles::OpenErrorFile() {
    if (!errorFile_.isOpen()) OpenForWriting(errorFile_, QIODevice::Append);
}

void FolderFiles::CloseErrorFile() { errorFile_.close(); }

void FolderFiles::WriteToErrorFile(const std::string& bytes) {
    if (!errorFile_.isOpen()) throw RuntimeError(RuntimeError::kBadFile);
    Write(errorFile_, bytes);
}

void FolderFiles::EmptyErrorFile() {
    QFile file(errorFile_.fileName());
    OpenForWriting(file, QIODevice::Truncate);
}

}  // namespace commtest
