#pragma once

#include "runtime/text.h"

namespace commtest {

// The bit fields of an IEEE 754 single of eight characters; its text goes no further and says so in its
// title. The explanation is replaced.
void ExplainIeeeCode(const Text& code, Text& explanation);

}  // namespace commtest
