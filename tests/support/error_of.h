#pragma once

#include "runtime/runtime_error.h"

namespace commtest::testing {

// The number of the run-time error that a call raises, 0 if it raises none.
template <typename Call>
int ErrorOf(Call&& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace commtest::testing
