#pragma once

#include "runtime/text.h"

namespace commtest {

// How a decoded float is cut to the room that a reading has: 1 / `factor` is the last decimal kept, `length`
// the most characters, sign and point counted.
struct ReadingLength {
    double factor;
    int length;
};

// Cuts the decimals of a number text of more than five characters towards minus infinity, never rounds (0.3
// stored as 41999999 reads 0.29999998), keeps its first characters, and puts the zero before a leading point;
// that zero is not counted. A text in exponent form loses its exponent so: very large readings show a wrong
// number. Error 13 for a text that is no number.
void ShortenReading(Text& text, const ReadingLength& room);

// The zero before a leading point: .5 becomes 0.5, -.5 becomes -0.5.
void PutZeroBeforePoint(Text& text);

}  // namespace commtest
