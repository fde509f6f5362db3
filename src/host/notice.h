#pragma once

#include "runtime/text.h"

namespace commtest {

// A word of the program to its user beside the fixed texts: a reason and its parts. The faces word it.
struct Notice {
    enum class Kind {
        None,
        NoCatalogue,  // the catalogue cannot be opened; `detail` is its path
        PortCaveat,   // `detail` says what the open line does in another way than the settings say, or who
                      // reads it, too
        PortLost,     // the port has gone and the session stopped; `detail` says why
        EndOfFile,    // only the last megabyte of a file is shown; `detail` is its name
        NoUpdater,    // the updater cannot be started; `detail` is its path
    };
    Kind kind = Kind::None;
    Text detail = {};
};

}  // namespace commtest
