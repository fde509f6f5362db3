#pragma once

#include "runtime/text.h"

// How the custom float (numbers/custom_float.h) of a value is reached, in numbered steps. The explanation is
// replaced. Errors: 13 for a text that is no number (no step is written then), 6 where a byte leaves 32 bits
// (the steps before it stand); the value then stays.
namespace commtest {

// Also replaces the value by its code. Unlike the codec it has no rule for 0, which counts as negative and
// gives 100000000.
void ExplainValueToFloatCode(Text& value, Text& explanation);

// Stands beside the conversion to an IEEE 754 single: its title names that, its steps and its code are those
// of the custom float all the same.
void ExplainValueToIeee(const Text& value, Text& explanation);

}  // namespace commtest
