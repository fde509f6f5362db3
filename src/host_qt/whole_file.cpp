#include "host_qt/whole_file.h"

#include <QSaveFile>

namespace commtest {

QString WriteWhole(const QString& path, std::string_view bytes) {
    QSaveFile file(path);
    const bool isOpen = file.open(QIODevice::WriteOnly);
    if (isOpen) file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return isOpen && file.commit() ? QString() : file.errorString();
}

}  // namespace commtest
