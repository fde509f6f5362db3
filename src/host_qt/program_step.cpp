#include "host_qt/program_step.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// In the child, before the program begins: a group of its own, and it does not outlive this program.
void StandApart() {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

QProcessEnvironment PlainWords() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    return environment;
}

}  // namespace

ProgramStep::ProgramStep(const QString& program, const QStringList& arguments, int longestRun, Done done)
    : done_(std::move(done)) {
    process_.setProcessEnvironment(PlainWords());
    process_.setChildProcessModifier(StandApart);
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.setStandardInputFile(QProcess::nullDevice());
    // Queued: the one who hears of it may let the process go.
    QObject::connect(
        &process_, &QProcess::finished, &process_,
        [this](int code, QProcess::ExitStatus status) {
            Finish(status == QProcess::NormalExit && code == 0 ? End::Good : End::Failed);
        },
        Qt::QueuedConnection);
    QObject::connect(
        &process_, &QProcess::errorOccurred, &process_,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) Finish(End::Failed);
        },
        Qt::QueuedConnection);
    limit_.setSingleShot(true);
    limit_.callOnTimeout([this] { Finish(End::Hangs); });
    limit_.start(longestRun);
    process_.start(program, arguments);
}

ProgramStep::~ProgramStep() {
    process_.disconnect();
    Kill();
}

void ProgramStep::Kill() {
    const auto group = static_cast<pid_t>(process_.processId());
    if (group <= 0) return;
    kill(-group, SIGKILL);
    process_.kill();  // it may not have a group yet
    process_.waitForFinished();
}

Text ProgramStep::LastWords() {
    const QString words = QString::fromUtf8(process_.readAll()).trimmed();
    if (words.isEmpty()) return process_.errorString().toStdU16String();
    return words.section(u'\n', -1).trimmed().toStdU16String();
}

void ProgramStep::Finish(End end) {
    limit_.stop();
    process_.disconnect();
    Kill();
    const Done done = std::exchange(done_, {});
    const Text words = LastWords();
    if (done) done(end, words);
}

}  // namespace commtest
