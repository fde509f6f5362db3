#include "host_qt/result_file.h"

#include <unistd.h>

#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstring>

#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;
using Kind = SpreadsheetResult::Kind;

namespace {

Text ToText(const QString& text) { return text.toStdU16String(); }

// 0, or the number of the system's error.
int WriteAll(const QFileDevice& file, const QByteArray& bytes) {
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(file.handle(), bytes.data() + written, static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR) return errno;
        if (count > 0) written += count;
    }
    return fsync(file.handle()) == 0 ? 0 : errno;
}

SpreadsheetResult CannotWrite(const QString& path, const QString& why) {
    return {Kind::CannotWrite, ToText(Words::tr("%1：%2").arg(path, why))};
}

bool IsWantOfRoom(int error) { return error == ENOSPC || error == EDQUOT || error == EFBIG; }

bool MayBeWritten(const QFileInfo& file) {
    return file.exists() ? file.isWritable() : access(file.path().toLocal8Bit().constData(), W_OK) == 0;
}

}  // namespace

// The mark of an office program beside a file that it has open.
SpreadsheetResult LookForOpenElsewhere(const QString& path) {
    const QFileInfo file(path);
    const QString mark = u"%1/.~lock.%2#"_s.arg(file.path(), file.fileName());
    if (QFile::exists(mark)) return {Kind::OpenElsewhere, ToText(mark)};
    return {};
}

SpreadsheetResult PutInPlace(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        const bool hasFolder = QFileInfo(QFileInfo(path).path()).isDir();
        if (hasFolder && !MayBeWritten(QFileInfo(path))) return {Kind::NoRight, ToText(path)};
        return CannotWrite(path, file.errorString());
    }
    if (const int error = WriteAll(file, bytes); error != 0) {
        file.cancelWriting();
        if (IsWantOfRoom(error)) return {Kind::NoRoom, ToText(path)};
        return CannotWrite(path, QString::fromLocal8Bit(std::strerror(error)));
    }
    if (!file.commit()) return CannotWrite(path, file.errorString());
    return {};
}

}  // namespace commtest
