#pragma once

#include <string>

namespace commtest {

// What --version says of a program that stands on the toolkit. Needs a QCoreApplication.
std::string OwnVersionLines(const std::string& program);

}  // namespace commtest
