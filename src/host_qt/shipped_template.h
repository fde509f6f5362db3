#pragma once

#include <string_view>

namespace commtest {

// The workbook of data/spreadsheet, as it was when the program was built.
std::string_view ShippedTemplate();

}  // namespace commtest
