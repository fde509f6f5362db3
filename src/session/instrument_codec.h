#pragma once

#include "runtime/text.h"

namespace commtest {

// Format numbers of the register codecs by the length column of a native instrument's row; a length without
// one gives a number that leaves a text unchanged.
int ReadFormatOfLength(TextView length);   // 1, 2, 4, 8
int WriteFormatOfLength(TextView length);  // 1, 2, 4

}  // namespace commtest
