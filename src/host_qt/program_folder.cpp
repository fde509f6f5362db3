#include "host_qt/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUuid>

#include "host/file_names.h"
#include "host_qt/qt_store.h"
#include "host_qt/shipped_help.h"
#include "host_qt/shipped_template.h"
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

// True if the file was made, by `write`; false if one stood there.
bool CreateMissing(const QString& path, const std::function<void(const Text& draft)>& write) {
    if (QFile::exists(path)) return false;
    DraftFile draft(path);
    write(draft.Path());
    draft.Publish(path);
    return true;
}

void WriteCatalogue(const Text& path, const std::function<void(Store&)>& fill) {
    QtStore store;
    store.Open({StoreAddress::Kind::LocalFile, path, {}});
    fill(store);
}

void WriteBytes(const Text& path, std::string_view bytes) {
    QFile file(QString::fromStdU16String(path));
    const auto size = static_cast<qint64>(bytes.size());
    if (file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.flush()) return;
    throw RuntimeError::OfStore(path + u"：" + file.errorString().toStdU16String());
}

QString ToQt(TextView text) { return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

bool CreateProgramFolder(const Text& folder, const std::function<void(Store&)>& fill) {
    const QDir directory(ToQt(folder));
    if (!directory.mkpath(QStringLiteral("."))) throw RuntimeError(RuntimeError::kPathNotFound);
    const bool wasMissing = CreateMissing(directory.filePath(ToQt(kCatalogueFileName)),
                                          [&](const Text& draft) { WriteCatalogue(draft, fill); });
    CreateMissing(directory.filePath(ToQt(kHelpFileName)),
                  [](const Text& draft) { WriteBytes(draft, ShippedHelp()); });
    CreateMissing(directory.filePath(ToQt(kSpreadsheetTemplateName)),
                  [](const Text& draft) { WriteBytes(draft, ShippedTemplate()); });
    if (!directory.mkpath(ToQt(kRecordFolderName))) throw RuntimeError(RuntimeError::kPathNotFound);
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
