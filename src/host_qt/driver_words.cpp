#include "host_qt/driver_words.h"

#include <QString>
#include <QtGlobal>

namespace commtest {

namespace {

QtMessageHandler g_printer = nullptr;

void PrintUnlessOfDriver(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith(QStringLiteral("QODBC"))) return;
    g_printer(type, context, text);
}

}  // namespace

void SilenceStoreDrivers() {
    const QtMessageHandler before = qInstallMessageHandler(PrintUnlessOfDriver);
    if (before != PrintUnlessOfDriver) g_printer = before;
}

}  // namespace commtest
