#pragma once

#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <functional>

#include "runtime/text.h"

namespace commtest {

// Another program that runs beside this one, to its end or to its time limit. Once this goes the program
// goes, too, with all that it has started.
class ProgramStep {
  public:
    enum class End { Good, Failed, Hangs };

    // `done` is called once, from the event loop; within it this may go. `words` are the last that the
    // program has said, or why it could not be started.
    using Done = std::function<void(End end, const Text& words)>;
    ProgramStep(const QString& program, const QStringList& arguments, int longestRun, Done done);
    ~ProgramStep();
    ProgramStep(const ProgramStep&) = delete;
    ProgramStep& operator=(const ProgramStep&) = delete;

  private:
    void Finish(End end);
    void Kill();
    Text LastWords();

    QProcess process_;
    QTimer limit_;
    Done done_;
};

}  // namespace commtest
