#include "host_qt/process_name.h"

#include <QFile>

#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;

QString NameOfProcess(const QString& number) {
    QFile file(u"/proc/%1/comm"_s.arg(number));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return Words::tr("%1 (进程 %2)").arg(QString::fromUtf8(file.readAll()).trimmed(), number);
}

}  // namespace commtest
