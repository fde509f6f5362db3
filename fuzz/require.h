#pragma once

#include <cstdio>
#include <cstdlib>

namespace commtest::fuzz {

// Ends the run, with the input kept, where a promise is broken.
inline void Require(bool isKept, const char* promise) {
    if (isKept) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

}  // namespace commtest::fuzz
