#include "window/simulated_instrument.h"

#include <signal.h>
#include <sys/prctl.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <utility>

#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;

const char16_t* const SimulatedInstrument::kProtocol = u"TQ仪表协议";
const char16_t* const SimulatedInstrument::kName = u"HX-D10智能数字显示控制仪";

SimulatedInstrument::SimulatedInstrument(QString program, int patience)
    : program_(std::move(program)), patience_(patience) {}

SimulatedInstrument::~SimulatedInstrument() { End(); }

QString SimulatedInstrument::ProgramBeside() {
    return QCoreApplication::applicationDirPath() + u"/instrument-simulator"_s;
}

bool SimulatedInstrument::Start() {
    const QString description = folder_.filePath(u"indicator.txt"_s);
    QFile::copy(u":/simulator/indicator.txt"_s, description);
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.start(program_, {u"--description"_s, description, u"--link"_s, Device()});
    if (!process_.waitForStarted(patience_)) {
        problem_ = process_.errorString();
        return false;
    }
    if (AwaitDevice()) return true;
    problem_ = process_.state() == QProcess::NotRunning ? Words::tr("模拟仪表程序已退出")
                                                        : Words::tr("模拟仪表没有按时就绪");
    End();
    return false;
}

bool SimulatedInstrument::AwaitDevice() {
    const QDeadlineTimer deadline(patience_);
    while (!QFile::exists(Device()) && !deadline.hasExpired()) {
        process_.waitForFinished(5);
        if (process_.state() == QProcess::NotRunning) return false;
    }
    return QFile::exists(Device());
}

void SimulatedInstrument::End() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (process_.waitForFinished(patience_)) return;
    process_.kill();
    process_.waitForFinished();
}

}  // namespace commtest
