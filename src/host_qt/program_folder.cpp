#include "host_qt/program_folder.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include "host/file_names.h"
#include "host_qt/qt_store.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

// A new and empty file beside the one that it is to become; gone at the end unless it became that.
class DraftFile {
  public:
    explicit DraftFile(const QString& path)
        : file_(path + u'.' + QUuid::createUuid().toString(QUuid::Id128)) {
        if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly)) Raise(path);
        file_.close();
    }
    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;
    ~DraftFile() {
        if (!published_) file_.remove();
    }

    Text Path() const { return file_.fileName().toStdU16String(); }

    // Takes the name for good; an existing file is never replaced.
    void Publish(const QString& path) {
        published_ = file_.rename(path);
        if (!published_) Raise(path);
    }

  private:
    [[noreturn]] void Raise(const QString& path) const {
        throw RuntimeError::OfStore(path.toStdU16String() + u"：" + file_.errorString().toStdU16String());
    }

    QFile file_;
    bool published_ = false;
};

void CreateCatalogueFile(const QString& path, const std::function<void(Store&)>& fill) {
    DraftFile draft(path);
    {
        QtStore store;
        store.Open({StoreAddress::Kind::LocalFile, draft.Path(), {}});
        fill(store);
    }
    draft.Publish(path);
}

QString ToQt(TextView text) { return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

bool CreateProgramFolder(const Text& folder, const std::function<void(Store&)>& fill) {
    const QDir directory(ToQt(folder));
    if (!directory.mkpath(QStringLiteral("."))) throw RuntimeError(RuntimeError::kPathNotFound);
    const QString catalogue = directory.filePath(ToQt(kCatalogueFileName));
    const bool isMissing = !QFile::exists(catalogue);
    if (isMissing) CreateCatalogueFile(catalogue, fill);
    if (!directory.mkpath(ToQt(kRecordFolderName))) throw RuntimeError(RuntimeError::kPathNotFound);
    return isMissing;
}

}  // namespace commtest
