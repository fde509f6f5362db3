// The program with its window, to its first painted window: window_start PROGRAM_FOLDER. A start of every
// day: the steps to the first exchange are no more shown.
#include <QApplication>
#include <QSettings>

#include "first_paint.h"
#include "window/communication_page.h"
#include "window/grid_view.h"
#include "window/window_program.h"

namespace {

void KeepAsBehindTheFirstExchange(const QString& settingsFile) {
    QSettings settings(settingsFile, QSettings::IniFormat);
    const QString key = QStringLiteral("Window/HasExchanged");
    if (!settings.value(key).toBool()) settings.setValue(key, true);
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion("1.0.0");
    commtest::WindowOptions options;
    options.folder = QString::fromLocal8Bit(argv[1]);
    options.settingsFile = options.folder + "/settings.ini";
    KeepAsBehindTheFirstExchange(options.settingsFile);
    commtest::WindowProgram program(options);
    if (!program.Start()) return 1;
    const FirstPaint firstPaint(
        *program.Window().findChild<commtest::CommunicationPage*>()->Parameters().viewport());
    return QApplication::exec();
}
