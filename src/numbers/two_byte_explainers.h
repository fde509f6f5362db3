#pragma once

#include "runtime/text.h"

// How the value of a whole number's code is reached, in numbered steps. The explanation is replaced; a code
// of a length that the format does not have gets "数据非法,无法演示转换过程".
namespace commtest {

// 原码, low and high byte first. Also a single byte of 2 characters, a custom float of 8 and an accumulated
// value of 16. The two differ at the code of 32768: only the first corrects it.
void ExplainSignMagnitudeSwapped(const Text& code, Text& explanation);
void ExplainSignMagnitude(const Text& code, Text& explanation);

// 补码 of 4 characters, or a single byte of 2. The code 8000 ends in "--32768".
void ExplainTwosComplement(const Text& code, Text& explanation);

}  // namespace commtest
