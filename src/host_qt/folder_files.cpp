#include "host_qt/folder_files.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>

#include "host/file_names.h"
#include "host_qt/path_problem.h"
#include "runtime/code_page.h"
#include "runtime/rich_text.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLongestText = 1024 * 1024;  // bytes; of a longer file its end is read
const QString kKeptEnd = u".ini"_s;
constexpr qint64 kLongestMark = 16;  // bytes; the beginning of a file, which tells its kind

std::string_view View(const QByteArray& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

void OpenForReading(QFile& file) {
    if (file.open(QIODevice::ReadOnly)) return;
    throw FileTrouble(RuntimeError::kFileNotFound, ObstacleTo(PathUse::Reading, file.fileName()));
}

void OpenForWriting(QFile& file, QIODevice::OpenMode mode) {
    if (file.open(QIODevice::WriteOnly | mode)) return;
    const bool hasFolder = QFileInfo(file).dir().exists();
    throw FileTrouble(hasFolder ? RuntimeError::kBadFile : RuntimeError::kPathNotFound,
                      ObstacleTo(PathUse::Writing, file.fileName()));
}

void Write(QFile& file, const std::string& bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    errno = 0;
    if (file.write(bytes.data(), size) == size && file.flush()) return;
    throw FileTrouble(RuntimeError::kBadFile, WordsOnSystemError(errno));
}

// A cut may go through a character: the text then begins behind the first line end.
QByteArray EndOf(QFile& file) {
    file.seek(file.size() - kLongestText);
    const QByteArray bytes = file.readAll();
    return bytes.mid(bytes.indexOf('\n') + 1);
}

class FolderFileLines : public LineReader {
  public:
    explicit FolderFileLines(const QString& path) : file_(path) {
        OpenForReading(file_);
        const bool hasMark = View(file_.peek(kLongestMark)).starts_with(kUtf8Mark);
        isUtf8_ = hasMark || AllLinesAreUtf8();
        file_.seek(hasMark ? static_cast<qint64>(kUtf8Mark.size()) : 0);
    }

    std::optional<Text> Next() override {
        if (file_.atEnd()) return std::nullopt;
        const QByteArray bytes = file_.readLine();
        std::string_view line = View(bytes);
        if (line.ends_with('\n')) line.remove_suffix(1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        return isUtf8_ ? FromUtf8(line) : FromCodePage(line);
    }

  private:
    bool AllLinesAreUtf8() {
        while (!file_.atEnd()) {
            if (!IsUtf8(View(file_.readLine()))) return false;
        }
        return true;
    }

    QFile file_;
    bool isUtf8_ = false;
};

class FolderFileBytes : public ByteReader {
  public:
    explicit FolderFileBytes(const QString& path) : file_(path) {
        if (file_.open(QIODevice::ReadOnly)) return;
        throw FileTrouble(file_.exists() ? RuntimeError::kBadFile : RuntimeError::kFileNotFound,
                          ObstacleTo(PathUse::Reading, path));
    }

    std::size_t Read(char* to, std::size_t room) override {
        const qint64 count = file_.read(to, static_cast<qint64>(room));
        if (count < 0) throw RuntimeError(RuntimeError::kBadFile);
        return static_cast<std::size_t>(count);
    }

    void Rewind() override { file_.seek(0); }

    std::uint64_t Size() const override { return static_cast<std::uint64_t>(file_.size()); }

  private:
    QFile file_;
};

class GrowingFolderFile : public GrowingFile {
  public:
    explicit GrowingFolderFile(const QString& path) : file_(path) {
        OpenForWriting(file_, QIODevice::Append);
    }

    void Write(const std::string& bytes) override { commtest::Write(file_, bytes); }

  private:
    QFile file_;
};

}  // namespace

FolderFiles::FolderFiles(const QString& folder) : folder_(QDir(folder).absolutePath()) {}

void FolderFiles::MoveTo(const QString& folder) {
    CloseErrorFile();
    folder_ = QDir(folder).absolutePath();
}

QString FolderFiles::FullPath(const Text& name) const {
    return QDir(folder_).filePath(QString::fromStdU16String(name));
}

bool FolderFiles::Exists(const Text& name) const { return QFile::exists(FullPath(name)); }

Text FolderFiles::PathOf(const Text& name) const { return FullPath(name).toStdU16String(); }

Text FolderFiles::ReadWhole(const Text& name) const {
    QFile file(FullPath(name));
    OpenForReading(file);
    const QByteArray bytes = file.readAll();
    return IsRichText(View(bytes)) ? PlainTextOf(View(bytes)) : FromFileBytes(View(bytes));
}

FileText FolderFiles::ReadEnd(const Text& name) const {
    QFile file(FullPath(name));
    OpenForReading(file);
    if (file.size() <= kLongestText || IsRichText(View(file.peek(kLongestMark)))) {
        return {ReadWhole(name), false};
    }
    return {FromFileBytes(View(EndOf(file))), true};
}

std::unique_ptr<LineReader> FolderFiles::ReadLines(const Text& name) const {
    return std::make_unique<FolderFileLines>(FullPath(name));
}

std::unique_ptr<ByteReader> FolderFiles::OpenBytes(const Text& name) const {
    return std::make_unique<FolderFileBytes>(FullPath(name));
}

std::vector<Text> FolderFiles::NamesBeginning(const Text& beginning) const {
    std::vector<Text> names;
    for (const QString& file : QDir(folder_).entryList(QDir::Files | QDir::Hidden, QDir::Unsorted)) {
        Text name = file.toStdU16String();
        if (name.starts_with(beginning)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

void FolderFiles::Remove(const Text& name) {
    if (!QFile::remove(FullPath(name))) throw RuntimeError(RuntimeError::kBadFile);
}

void FolderFiles::Rename(const Text& name, const Text& newName) {
    if (!QFile::rename(FullPath(name), FullPath(newName))) throw RuntimeError(RuntimeError::kBadFile);
}

std::unique_ptr<GrowingFile> FolderFiles::OpenForAppend(const Text& name) {
    return std::make_unique<GrowingFolderFile>(FullPath(name));
}

void FolderFiles::SaveRichText(const Text& name, const Text& text) {
    QFile file(FullPath(name));
    OpenForWriting(file, QIODevice::Truncate);
    Write(file, RichTextOf(text));
}

void FolderFiles::EmptyErrorFile() {
    QFile file(FullPath(Text(kErrorFileName)));
    OpenForWriting(file, QIODevice::Truncate);
}

QString FolderFiles::FreeKeptName(const Text& moment) const {
    const QString stem = QString::fromStdU16String(Text(kKeptErrorFileStem) + moment);
    QString name = stem + kKeptEnd;
    for (int turn = 2; QDir(folder_).exists(name); ++turn) name = u"%1-%2"_s.arg(stem).arg(turn) + kKeptEnd;
    return name;
}

Text FolderFiles::KeepErrorFile(const Text& moment) {
    const QString errors = FullPath(Text(kErrorFileName));
    if (!QFile::exists(errors)) throw RuntimeError(RuntimeError::kFileNotFound);
    const QString name = FreeKeptName(moment);
    if (!QFile::copy(errors, QDir(folder_).filePath(name))) throw RuntimeError(RuntimeError::kBadFile);
    DropOldestKept();
    return name.toStdU16String();
}

void FolderFiles::DropOldestKept() const {
    const QString pattern = QString::fromStdU16String(Text(kKeptErrorFileStem)) + u"[0-9]*"_s + kKeptEnd;
    QFileInfoList kept = QDir(folder_).entryInfoList({pattern}, QDir::Files);
    std::sort(kept.begin(), kept.end(), [](const QFileInfo& one, const QFileInfo& other) {
        return one.completeBaseName() < other.completeBaseName();
    });
    for (; kept.size() > kKeptErrorFiles; kept.removeFirst()) QFile::remove(kept.first().filePath());
}

}  // namespace commtest
