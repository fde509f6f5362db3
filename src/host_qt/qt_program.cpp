#include "host_qt/qt_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QVersionNumber>

#include "host_qt/local_time.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString LockFileName() {
    const QString own = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return (own.isEmpty() ? QDir::tempPath() : own) + u"/CommTest.lock"_s;
}

}  // namespace

ProgramVersion QtProgram::Version() const {
    const auto number = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    return {number.majorVersion(), number.minorVersion(), number.microVersion()};
}

// A folder that takes no lock file stops nobody from working.
bool QtProgram::PrevInstance() const {
    if (lock_ == nullptr) {
        lock_ = std::make_unique<QLockFile>(LockFileName());
        lock_->setStaleLockTime(0);  // a living instance holds its lock, however old
    }
    return !lock_->isLocked() && !lock_->tryLock(0) && lock_->error() == QLockFile::LockFailedError;
}

Text QtProgram::OwnFile() const { return QCoreApplication::applicationFilePath().toStdU16String(); }

DateTime QtProgram::FileTime(const Text& path) const {
    const QFileInfo file(QString::fromStdU16String(path).replace(u'\\', u'/'));
    if (!file.exists()) throw RuntimeError(RuntimeError::kFileNotFound);
    return LocalTime(file.lastModified());
}

void QtProgram::Start(const Text& path) {
    const QString file = QString::fromStdU16String(path);
    if (!QProcess::startDetached(file, {}, QFileInfo(file).path()))
        throw RuntimeError(RuntimeError::kFileNotFound);
}

// Not quit(), which would close the windows, and with each of them end the program once more.
void QtProgram::End() {
    hasEnded_ = true;
    QCoreApplication::exit(0);
}

}  // namespace commtest
