#include "host_qt/renewed_help.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include "host/file_names.h"
#include "host_qt/whole_file.h"

namespace commtest {

void RenewHelp(const QString& folder, std::string_view present, std::string_view versions) {
    const QString path = QDir(folder).filePath(QString::fromStdU16String(Text(kHelpFileName)));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return;
    const QByteArray text = file.readAll();
    file.close();
    const QByteArray sum = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
    const bool isFormer = text != QByteArrayView(present) && QByteArrayView(versions).contains(sum);
    if (isFormer) (void)WriteWhole(path, present);
}

}  // namespace commtest
