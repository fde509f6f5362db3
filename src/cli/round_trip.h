#pragma once

#include <vector>

#include "runtime/text.h"

namespace commtest {

enum class Direction { ToCode, ToValue };

// A conversion of numbers/register_codecs.h.
struct Conversion {
    int format;
    Direction direction;

    bool operator==(const Conversion&) const = default;
};

// Errors of the codecs.
void Convert(const Conversion& conversion, Text& text);

// What the user of a conversion has to know, a sentence each: that the way back does not lead to the input
// and why, that the explanation reads the code in another way, and that the tool window shows something else.
// Nothing if none of these is so.
std::vector<Text> RoundTripNotes(const Conversion& conversion, const Text& input, const Text& result);

}  // namespace commtest
