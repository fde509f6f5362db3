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

QString RunTimeFile(const QString& name) {
    const QString own = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return (own.isEmpty() ? QDir::tempPath() : own) + u'/' + name;
}

QString CallFile() { return RunTimeFile(u"CommTest.call"_s); }

}  // namespace

ProgramVersion QtProgram::Version() const {
    const auto number = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    return {number.majorVersion(), number.minorVersion(), number.microVersion()};
}

// A folder that takes no lock file stops nobody from working.
bool QtProgram::PrevInstance() const { return !HoldLock() && lock_->error() == QLockFile::LockFailedError; }

bool QtProgram::HoldLock() const {
    if (lock_ == nullptr) {
        lock_ = std::make_unique<QLockFile>(RunTimeFile(u"CommTest.lock"_s));
        lock_->setStaleLockTime(0);  // a living instance holds its lock, however old
    }
    if (lock_->isLocked()) return true;
    if (!lock_->tryLock(0)) return false;
    call_ = std::make_unique<CallSocket>(CallFile());
    call_->IsCalled = [this] {
        if (IsCalled) IsCalled();
    };
    call_->Listen();
    return true;
}

void QtProgram::CallFirst() const {
    if (PrevInstance()) CallSocket(CallFile()).Call();
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
