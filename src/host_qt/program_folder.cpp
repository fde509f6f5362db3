#include "host_qt/program_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUuid>
#include <cerrno>
#include <cstdio>

#include "host/file_names.h"
#include "host_qt/path_problem.h"
#include "host_qt/qt_store.h"
#include "host_qt/shipped_help.h"
#include "host_qt/shipped_template.h"
#include "host_qt/words.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

// A new and empty file beside the one that it is to become; gone at the end unless it became that.
class DraftFile {
  public:
    explicit DraftFile(const QString& path) {
        while (!Make(path)) close(lock_);
    }
    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;
    ~DraftFile() {
        if (!published_) file_.remove();
        close(lock_);
    }

    Text Path() const { return file_.fileName().toStdU16String(); }

    // Takes the name for good; an existing file is never replaced. False if another program was quicker.
    bool Publish(const QString& path) {
        published_ = TakeName(path);
        if (!published_ && !QFile::exists(path)) Raise(path);
        return published_;
    }

  private:
    // False if another program took it for abandoned before it was locked, and has removed it.
    bool Make(const QString& path) {
        file_.setFileName(path + u'.' + QUuid::createUuid().toString(QUuid::Id128));
        errno = 0;
        if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly)) Raise(path);
        lock_ = dup(file_.handle());
        flock(lock_, LOCK_EX);
        file_.close();
        struct stat state = {};
        return fstat(lock_, &state) == 0 && state.st_nlink > 0;
    }

    // In one step, so that of two programs one is the quicker.
    bool TakeName(const QString& path) {
        const QByteArray from = QFile::encodeName(file_.fileName());
        const QByteArray to = QFile::encodeName(path);
        errno = 0;
        if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
            return true;
        const bool isUnknownHere = errno == EINVAL || errno == ENOSYS;  // to the file system, to the kernel
        return isUnknownHere && file_.rename(path);
    }

    [[noreturn]] void Raise(const QString& path) const {
        const QString reason = ReasonOfFailure(PathUse::Writing, path, errno);
        throw RuntimeError::OfStore(Words::tr("%1：%2").arg(path, reason).toStdU16String());
    }

    QFile file_;
    int lock_ = -1;  // held as long as its program lives
    bool published_ = false;
};

// Removes a file of a draft's that nobody writes any more: the lock of the draft can be had. It is held
// meanwhile, so that who has just made the draft and waits for its lock finds it gone.
void RemoveIfAbandoned(const QString& file, const QString& draft) {
    const int lock = open(QFile::encodeName(draft).constData(), O_RDONLY | O_CLOEXEC);
    const bool isAbandoned = lock < 0 ? !QFile::exists(draft) : flock(lock, LOCK_EX | LOCK_NB) == 0;
    if (isAbandoned) QFile::remove(file);
    if (lock >= 0) close(lock);
}

// What a program left that was killed over it: the draft, and the journal of its catalogue.
void ClearAbandonedDrafts(const QDir& folder, const QString& name) {
    static const QRegularExpression kDraft(QStringLiteral("\\.[0-9a-f]{32}(-journal)?$"));
    for (const QString& file : folder.entryList({name + QStringLiteral(".*")}, QDir::Files | QDir::Hidden)) {
        const QRegularExpressionMatch draft = kDraft.match(file);
        if (!draft.hasMatch()) continue;
        RemoveIfAbandoned(folder.filePath(file), folder.filePath(file.chopped(draft.capturedLength(1))));
    }
}

// True if the file was made, by `write`; false if one stood there.
bool CreateMissing(const QString& path, const std::function<void(const Text& draft)>& write) {
    if (QFile::exists(path)) return false;
    DraftFile draft(path);
    write(draft.Path());
    return draft.Publish(path);
}

void WriteCatalogue(const Text& path, const std::function<void(Store&)>& fill) {
    QtStore store;
    store.Open({StoreAddress::Kind::LocalFile, path, {}});
    fill(store);
}

void WriteBytes(const Text& path, std::string_view bytes) {
    QFile file(QString::fromStdU16String(path));
    const auto size = static_cast<qint64>(bytes.size());
    errno = 0;
    if (file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.flush()) return;
    const QString reason = ReasonOfFailure(PathUse::Writing, file.fileName(), errno);
    throw RuntimeError::OfStore(
        Words::tr("%1：%2").arg(QString::fromStdU16String(path), reason).toStdU16String());
}

void MakeFolder(const QString& path) {
    errno = 0;
    if (QDir().mkpath(path)) return;
    throw FileTrouble(RuntimeError::kPathNotFound, ReasonOfFailure(PathUse::MakingFolder, path, errno));
}

QString ToQt(TextView text) { return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

bool CreateProgramFolder(const Text& folder, const std::function<void(Store&)>& fill) {
    const QDir directory(ToQt(folder));
    MakeFolder(directory.absolutePath());
    ClearAbandonedDrafts(directory, ToQt(kCatalogueFileName));
    ClearAbandonedDrafts(directory, ToQt(kHelpFileName));
    ClearAbandonedDrafts(directory, ToQt(kSpreadsheetTemplateName));
    const bool wasMissing = CreateMissing(directory.filePath(ToQt(kCatalogueFileName)),
                                          [&](const Text& draft) { WriteCatalogue(draft, fill); });
    CreateMissing(directory.filePath(ToQt(kHelpFileName)),
                  [](const Text& draft) { WriteBytes(draft, ShippedHelp()); });
    CreateMissing(directory.filePath(ToQt(kSpreadsheetTemplateName)),
                  [](const Text& draft) { WriteBytes(draft, ShippedTemplate()); });
    MakeFolder(directory.filePath(ToQt(kRecordFolderName)));
    return wasMissing;
}

QString UsersProgramFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/CommTest");
}

ProgramFolder FindProgramFolder(const std::function<void(Store&)>& fill) {
    const QDir beside(QCoreApplication::applicationDirPath());
    if (beside.exists(ToQt(kCatalogueFileName))) return {beside.path(), false};
    const QString own = UsersProgramFolder();
    return {own, CreateProgramFolder(own.toStdU16String(), fill)};
}

}  // namespace commtest
