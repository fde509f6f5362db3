#pragma once

#include "runtime/text.h"

namespace commtest {

// Why a text is no code of that number format, in words: it is empty, or holds a character that is no digit
// there. Empty for a code, and for the formats that convert nothing.
Text WhyNoCode(const Text& text, int formatNumber);

}  // namespace commtest
