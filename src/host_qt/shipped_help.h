#pragma once

#include <string_view>

namespace commtest {

// The file of data/help, as it was when the program was built: UTF-8.
std::string_view ShippedHelp();

// The SHA-256 of each text that it has had, a line each, the present one last.
std::string_view ShippedHelpVersions();

}  // namespace commtest
