#pragma once

#include "runtime/text.h"

namespace commtest {

// How the value of a BCD code (numbers/bcd.h) is reached, in numbered steps; the code is first fitted to ten
// characters. The explanation is replaced. Error 13 where the codec cannot read the code; all steps but the
// last one stand then.
void ExplainBcdCode(const Text& code, Text& explanation);

}  // namespace commtest
