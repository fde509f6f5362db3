#include "window/simulated_instrument.h"

#include <signal.h>
#include <sys/prctl.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

namespace commtest {

using namespace Qt::StringLiterals;

const char16_t* const SimulatedInstrument::kProtocol = u"TQ仪表协议";
const char16_t* const SimulatedInstrument::kName = u"HX-D10智能数字显示控制仪";

SimulatedInstrument::~SimulatedInstrument() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    process_.waitForFinished();
}

bool SimulatedInstrument::Start() {
    constexpr int kPatience = 3000;  // milliseconds
    const QString description = folder_.filePath(u"indicator.txt"_s);
    QFile::copy(u":/simulator/indicator.txt"_s, description);
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.start(QCoreApplication::applicationDirPath() + u"/instrument-simulator"_s,
                   {u"--description"_s, description, u"--link"_s, Device()});
    if (!process_.waitForStarted(kPatience)) return false;
    const QDeadlineTimer deadline(kPatience);
    while (!QFile::exists(Device()) && !deadline.hasExpired()) QThread::msleep(5);
    return QFile::exists(Device());
}

}  // namespace commtest
