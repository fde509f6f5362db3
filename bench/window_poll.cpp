// The program with its window polls a simulated instrument on a device and tells on the way, a line a
// reading: exchanges, failures, wall seconds, processor seconds, resident kilobytes. It begins when the
// window stands and has come to rest.
//     window_poll PROGRAM_FOLDER DEVICE INTERVAL_MS EXCHANGES READINGS
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <cstdio>

#include "commands/toolbar_commands.h"
#include "session/events.h"
#include "window/window_program.h"

namespace {

constexpr int kComesToRest = 1000;  // milliseconds
constexpr int kBetweenLooks = 500;  // milliseconds; a look costs, too

double ProcessorSeconds() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

long ResidentKilobytes() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    constexpr long kPageKilobytes = 4;
    return file.readAll().split(' ').value(1).toLong() * kPageKilobytes;
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion("1.0.0");
    const QStringList words = QCoreApplication::arguments();
    commtest::WindowOptions options;
    options.folder = words[1];
    options.settingsFile = options.folder + "/settings.ini";
    options.devices[1] = words[2];
    commtest::WindowProgram program(options);
    if (!program.Start()) return 1;
    commtest::MainForm& form = program.Form();
    form.ConDelayTime.Set(words[3].toStdU16String());
    const int step = words[4].toInt() / words[5].toInt();
    int next = step;

    QElapsedTimer wall;
    double processorAtStart = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (form.SendCount < next) return;
        next += step;
        const int failures = form.IncompleteCount + form.CheckErrorCount + form.NoReplyCount;
        std::printf("%d %d %.3f %.3f %ld\n", form.SendCount, failures,
                    static_cast<double>(wall.elapsed()) / 1000, ProcessorSeconds() - processorAtStart,
                    ResidentKilobytes());
        std::fflush(stdout);
        if (next > words[4].toInt()) QCoreApplication::exit(0);
    });
    QTimer::singleShot(kComesToRest, [&] {
        commtest::RunEvent(form,
                           [&form] { commtest::RunToolbarCommand(form, commtest::toolbar::kStartStop); });
        wall.start();
        processorAtStart = ProcessorSeconds();
        timer.start(kBetweenLooks);
    });
    return QApplication::exec();
}
