#pragma once

#include "host/clock.h"
#include "runtime/text.h"

namespace commtest {

struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int revision = 0;
};

// As the titles of the windows show it: "1.02.03".
Text VersionText(const ProgramVersion& version);

// The running program as its system sees it, and other programs.
class ProgramProcess {
  public:
    virtual ~ProgramProcess() = default;

    virtual ProgramVersion Version() const = 0;

    // Whether another instance of the program runs for this user.
    virtual bool PrevInstance() const = 0;

    // Path of the program's own file.
    virtual Text OwnFile() const = 0;

    // When a file was last changed, in local time; error 53 if there is none. A backslash in the path parts
    // folders, too.
    virtual DateTime FileTime(const Text& path) const = 0;

    // Starts another program beside this one; error 53 if it cannot be started.
    virtual void Start(const Text& path) = 0;

    // Leaves the event pump as soon as the handler in progress is done.
    virtual void End() = 0;
};

}  // namespace commtest
