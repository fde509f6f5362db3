#pragma once

#include <string_view>

namespace commtest {

// The file of data/help, as it was when the program was built: UTF-8.
std::string_view ShippedHelp();

}  // namespace commtest
