#pragma once

#include <QLockFile>
#include <memory>

#include "host/program_process.h"

namespace commtest {

// The running program. Needs a QCoreApplication with its version set.
class QtProgram : public ProgramProcess {
  public:
    ProgramVersion Version() const override;

    // The first instance holds a lock file in the user's run-time folder; one that a crash has left does not
    // count.
    bool PrevInstance() const override;
    Text OwnFile() const override;
    DateTime FileTime(const Text& path) const override;
    void Start(const Text& path) override;
    void End() override;
    bool HasEnded() const { return hasEnded_; }

  private:
    mutable std::unique_ptr<QLockFile> lock_;  // from the first question on
    bool hasEnded_ = false;
};

}  // namespace commtest
