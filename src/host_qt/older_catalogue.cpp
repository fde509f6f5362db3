#include "host_qt/older_catalogue.h"

#include <QByteArray>
#include <QFile>

namespace commtest {

bool IsOlderCatalogue(const QString& path) {
    constexpr qsizetype kMark = 4;
    constexpr qint64 kHead = 19;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = file.read(kHead);
    if (!head.startsWith(QByteArray("\0\1\0\0", kMark))) return false;
    const QByteArray name = head.sliced(kMark);
    return name == "Standard Jet DB" || name == "Standard ACE DB";
}

}  // namespace commtest
