#pragma once

#include <vector>

#include "runtime/text.h"
#include "tools/conversion_notes.h"

namespace commtest {

// A reason as the end of a sentence.
TextView WordsOf(LossReason reason);

// A sentence.
Text WordsOf(const Loss& loss, const Conversion& conversion);

// A sentence for each note.
std::vector<Text> WordsOf(const ConversionNotes& notes, const Conversion& conversion, const Text& result);

}  // namespace commtest
