#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace commtest {

// An instrument without a cable: the simulator that stands beside the program, behind a pseudo-terminal. It
// ends with this object, and with the program.
class SimulatedInstrument {
  public:
    SimulatedInstrument() = default;
    SimulatedInstrument(const SimulatedInstrument&) = delete;
    SimulatedInstrument& operator=(const SimulatedInstrument&) = delete;
    ~SimulatedInstrument();

    // What it plays, as the shipped catalogue names it.
    static const char16_t* const kProtocol;
    static const char16_t* const kName;

    // Starts it; false if it cannot be started.
    bool Start();

    QString Device() const { return folder_.filePath(QStringLiteral("instrument")); }
    QString Problem() const { return process_.errorString(); }

  private:
    QTemporaryDir folder_;
    QProcess process_;
};

}  // namespace commtest
