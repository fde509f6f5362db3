#include "host_qt/path_problem.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <cerrno>
#include <cstring>

#include "host_qt/words.h"

namespace commtest {

namespace {

bool IsAllowed(const QString& path, int mode) {
    return faccessat(AT_FDCWD, QFile::encodeName(path), mode, AT_EACCESS) == 0;
}

// The folders above a path, from the root down.
QStringList FoldersAbove(const QString& path) {
    QStringList folders;
    for (QString folder = QFileInfo(path).absolutePath();; folder = QFileInfo(folder).absolutePath()) {
        folders.prepend(folder);
        if (folder == QFileInfo(folder).absolutePath()) return folders;
    }
}

QString ObstacleInFolder(const QString& folder) {
    if (!QFileInfo::exists(folder)) return Words::tr("没有文件夹 %1").arg(folder);
    if (!QFileInfo(folder).isDir()) return Words::tr("%1 是文件，不是文件夹").arg(folder);
    if (!IsAllowed(folder, X_OK)) return Words::tr("没有进入文件夹 %1 的权限").arg(folder);
    return {};
}

QString ObstacleToAdding(const QString& folder) {
    if (IsAllowed(folder, W_OK)) return {};
    return errno == EROFS ? WordsOnSystemError(EROFS)
                          : Words::tr("没有在文件夹 %1 中建立文件的权限").arg(folder);
}

QString ObstacleInPlace(PathUse use, const QString& path) {
    const QFileInfo file(path);
    if (file.isDir()) return Words::tr("%1 是文件夹，不是文件").arg(path);
    if (use == PathUse::Reading) {
        return file.exists() && !IsAllowed(path, R_OK) ? Words::tr("没有读 %1 的权限").arg(path) : QString();
    }
    if (!file.exists()) return ObstacleToAdding(file.absolutePath());
    if (IsAllowed(path, W_OK)) return {};
    return errno == EROFS ? WordsOnSystemError(EROFS) : Words::tr("没有写 %1 的权限").arg(path);
}

QString ObstacleToFolder(const QString& path) {
    QString last;
    for (const QString& folder : FoldersAbove(path) + QStringList(QDir(path).absolutePath())) {
        if (!QFileInfo::exists(folder)) return ObstacleToAdding(last);
        if (const QString obstacle = ObstacleInFolder(folder); !obstacle.isEmpty()) return obstacle;
        last = folder;
    }
    return ObstacleToAdding(last);
}

}  // namespace

QString ObstacleTo(PathUse use, const QString& path) {
    if (use == PathUse::MakingFolder) return ObstacleToFolder(path);
    for (const QString& folder : FoldersAbove(path)) {
        if (const QString obstacle = ObstacleInFolder(folder); !obstacle.isEmpty()) return obstacle;
    }
    return ObstacleInPlace(use, path);
}

QString WordsOnSystemError(int error) {
    switch (error) {
        case 0: return {};
        case ENOSPC: return Words::tr("磁盘已满");
        case EDQUOT: return Words::tr("用户的磁盘配额已满");
        case EFBIG: return Words::tr("文件已到系统允许的最大长度");
        case EROFS: return Words::tr("磁盘是只读的");
        case EIO: return Words::tr("磁盘读写出错");
        default: return QString::fromLocal8Bit(std::strerror(error));
    }
}

QString ReasonOfFailure(PathUse use, const QString& path, int error) {
    const QString obstacle = ObstacleTo(use, path);
    return obstacle.isEmpty() ? WordsOnSystemError(error) : obstacle;
}

QString ReasonOf(const RuntimeError& error) {
    const auto* const trouble = dynamic_cast<const FileTrouble*>(&error);
    if (trouble != nullptr && !trouble->Reason().isEmpty()) return trouble->Reason();
    return QString::fromStdU16String(error.StandardMessage());
}

}  // namespace commtest
