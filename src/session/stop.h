#pragma once

#include <cstdint>

#include "session/exchange.h"

namespace commtest {

// Why a session stopped.
enum class StopCause {
    None,          // it has not stopped yet
    User,          // by the button
    Editor,        // a cell is being edited
    Questions,     // the addresses of several instruments are asked for
    Interval,      // the interval timer
    Search,        // a search begins
    SearchOver,    // a search has come to its end
    Replay,        // a replay is switched on
    Exception,     // an exception of the instrument, that of `outcome`
    PortRefused,   // the port could not be opened; `detail` says why
    PortLost,      // the port has gone; `detail` says why
    RuntimeError,  // a run-time error has ended the polling; `error` is its number, `detail` its message
};

struct Stop {
    StopCause cause = StopCause::None;
    std::int32_t exchange = 0;  // SendCount at that moment
    OutcomePointer outcome = {};
    Text detail = {};
    int error = 0;
};

}  // namespace commtest
