#include "host_qt/port_problem.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "host_qt/process_name.h"
#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kProcesses = u"/proc"_s;

// Programs that share serial ports leave their number in a file of this name.
QString ProcessInLockFile(const QString& device) {
    const QString name = QString(device).remove(u"/dev/"_s).replace(u'/', u'_');
    QFile lock(u"/var/lock/LCK..%1"_s.arg(name));
    if (!lock.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(lock.readLine()).trimmed();
}

QString HolderByLockFile(const QString& device) {
    const QString number = ProcessInLockFile(device);
    return number.isEmpty() ? QString() : NameOfProcess(number);
}

bool HasOpen(const QString& process, const QString& device) {
    const QDir files(u"%1/%2/fd"_s.arg(kProcesses, process));
    for (const QString& file : files.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
        if (QFile::symLinkTarget(files.filePath(file)) == device) return true;
    }
    return false;
}

// Sees the processes of the same user, or all of them for the administrator.
QString HolderByOpenFile(const QString& device) {
    for (const QString& process : QDir(kProcesses).entryList({u"[0-9]*"_s}, QDir::Dirs)) {
        if (HasOpen(process, device)) return NameOfProcess(process);
    }
    return {};
}

bool IsTerminal(const QString& device) {
    const int descriptor = open(QFile::encodeName(device), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool isTerminal = isatty(descriptor) != 0;
    close(descriptor);
    return isTerminal;
}

QString ReasonOfPermission(const QString& device) {
    if (access(QFile::encodeName(device), R_OK | W_OK) == 0) {
        const QString holder = HolderOf(device);
        return holder.isEmpty() ? Words::tr("设备 %1 正被另一个程序使用。请先结束那个程序").arg(device)
                                : Words::tr("设备 %1 正被程序 %2 使用。请先结束那个程序").arg(device, holder);
    }
    const QFileInfo info(device);
    const bool groupHelps = info.permission(QFile::ReadGroup | QFile::WriteGroup) && info.group() != u"root";
    if (!groupHelps) return Words::tr("没有读写设备 %1 的权限。请管理员放开它的权限").arg(device);
    return Words::tr(
               "没有读写设备 %1 的权限。请把用户加入 %2 组 (sudo usermod -aG %2 用户名)，重新登录后再试")
        .arg(device, info.group());
}

}  // namespace

bool IsLockedByAnother(const QString& device) {
    const QString number = ProcessInLockFile(device);
    return !number.isEmpty() && number.toLongLong() != getpid() &&
           QFileInfo::exists(u"%1/%2"_s.arg(kProcesses, number));
}

QString HolderOf(const QString& device) {
    const QString holder = HolderByLockFile(device);
    return holder.isEmpty() ? HolderByOpenFile(device) : holder;
}

QString ReasonOfFailedOpen(const QString& device, const QSerialPort& port, const Text& settings) {
    // A device that is not there can be locked by its name all the same.
    if (port.error() == QSerialPort::DeviceNotFoundError || !QFileInfo::exists(device)) {
        return Words::tr("设备 %1 不存在。请检查接线和设备名").arg(device);
    }
    if (port.error() == QSerialPort::PermissionError) return ReasonOfPermission(device);
    if (!IsTerminal(device)) return Words::tr("%1 不是串口设备。请检查设备名").arg(device);
    if (port.error() == QSerialPort::UnsupportedOperationError) {
        return Words::tr("设备 %1 不支持串口设置 %2。请换用别的设置")
            .arg(device, QString::fromStdU16String(settings));
    }
    return Words::tr("设备 %1 打不开: %2").arg(device, port.errorString());
}

}  // namespace commtest
