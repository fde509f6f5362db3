// The program with its window, to its first painted window: window_start PROGRAM_FOLDER. A start of every
// day: the steps to the first exchange are no more shown.
#include <QApplication>
#include <QSettings>

#include "first_paint.h"
#include "window/communication_page.h"
#include "window/grid_view.h"
#include "window/window_program.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion("1.0.0");
    commtest::WindowOptions options;
    options.folder = QString::fromLocal8Bit(argv[1]);
    options.settingsFile = options.folder + "/settings.ini";
    QSettings(options.settingsFile, QSettings::IniFormat).setValue("Window/HasExchanged", true);
    commtest::WindowProgram program(options);
    if (!program.Start()) return 1;
    const FirstPaint firstPaint(
        *program.Window().findChild<commtest::CommunicationPage*>()->Parameters().viewport());
    return QApplication::exec();
}
