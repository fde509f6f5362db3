#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace commtest {

// An instrument without a cable: the simulator that stands beside the program, behind a pseudo-terminal. It
// ends with this object, and with the program.
class SimulatedInstrument {
  public:
    // `program` is the simulator, which gets `patience` milliseconds to be there.
    explicit SimulatedInstrument(QString program = ProgramBeside(), int patience = 3000);
    SimulatedInstrument(const SimulatedInstrument&) = delete;
    SimulatedInstrument& operator=(const SimulatedInstrument&) = delete;
    ~SimulatedInstrument();

    // What it plays, as the shipped catalogue names it.
    static const char16_t* const kProtocol;
    static const char16_t* const kName;

    // Starts it; false if it cannot be started, or is not there in time: then it is ended, too.
    bool Start();

    QString Device() const { return folder_.filePath(QStringLiteral("instrument")); }
    const QString& Problem() const { return problem_; }  // why it could not be started

  private:
    static QString ProgramBeside();
    bool AwaitDevice();
    void End();

    QString program_;
    int patience_;
    QString problem_;
    QTemporaryDir folder_;
    QProcess process_;
};

}  // namespace commtest
