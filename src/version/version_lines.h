#pragma once

#include <string>

namespace commtest {

// What stands behind a program; "none" where it does without.
struct Foundations {
    std::string toolkit = "none";
    std::string store = "none";
};

// What --version says, alike of each program: the name with the version, then a line a fact, each with its
// key.
std::string VersionLines(const std::string& program, const Foundations& foundations);

}  // namespace commtest
