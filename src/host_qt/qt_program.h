#pragma once

#include <QLockFile>
#include <functional>
#include <memory>

#include "host/program_process.h"
#include "host_qt/call_socket.h"

namespace commtest {

// The running program. Needs a QCoreApplication with its version set.
class QtProgram : public ProgramProcess {
  public:
    ProgramVersion Version() const override;

    // The first instance holds a lock file in the user's run-time folder; one that a crash has left does not
    // count.
    bool PrevInstance() const override;
    // An instance that is not the first calls the one that is, which hears it in its event loop.
    std::function<void()> IsCalled;
    void CallFirst() const;

    Text OwnFile() const override;
    DateTime FileTime(const Text& path) const override;
    void Start(const Text& path) override;
    void End() override;
    bool HasEnded() const { return hasEnded_; }

  private:
    bool HoldLock() const;

    mutable std::unique_ptr<QLockFile> lock_;   // from the first question on
    mutable std::unique_ptr<CallSocket> call_;  // of the first instance
    bool hasEnded_ = false;
};

}  // namespace commtest
