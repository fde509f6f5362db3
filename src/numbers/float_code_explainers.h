#pragma once

#include "runtime/text.h"

// How the value of custom floats (numbers/custom_float.h) is reached, in numbered steps. The explanation is
// replaced.
namespace commtest {

// Also replaces the code by its value, with all of its 15 digits: 41999999 gives 0.299999982118607.
void ExplainFloatCode(Text& code, Text& explanation);

// Two custom floats in 16 characters, the first one a hundredfold.
void ExplainAccumulatedValue(const Text& code, Text& explanation);

}  // namespace commtest
