#include "host_qt/whole_file.h"

#include <QSaveFile>
#include <cerrno>

#include "host_qt/path_problem.h"

namespace commtest {

QString WriteWhole(const QString& path, std::string_view bytes) {
    QSaveFile file(path);
    errno = 0;
    const bool isOpen = file.open(QIODevice::WriteOnly);
    if (isOpen) file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (isOpen && file.commit()) return {};
    const QString reason = ReasonOfFailure(PathUse::Writing, path, errno);
    return reason.isEmpty() ? file.errorString() : reason;
}

}  // namespace commtest
