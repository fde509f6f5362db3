#pragma once

#include "runtime/text.h"

// IEEE 754 single, eight characters of code text, most significant byte first: 10 is 41200000.
namespace commtest {

// Number text to code text; exactly 0 gives 00000000. Error 13 for a text that is no number, 6 beyond the
// range of a single.
void ValueToIeeeSingle(Text& text);

// The value of eight characters; of a shorter code the missing pairs read as 0. Error 6 for a code that is
// infinite or not a number.
float IeeeSingleValue(TextView code);

}  // namespace commtest
