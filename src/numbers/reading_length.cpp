#include "numbers/reading_length.h"

#include <cmath>

#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kNeedsNoCut = 5;  // Q19: characters

}  // namespace

void ShortenReading(Text& text, const ReadingLength& room) {
    if (Len(text) > kNeedsNoCut) {
        text = NumberText(std::floor(ToNumber(text) * room.factor));  // Q18: never rounded
        text = NumberText(ToNumber(text) / room.factor);
        // Q20, Q21: cut before the zero comes, an exponent with the rest.
        text = Left(text, room.length);
    }
    PutZeroBeforePoint(text);
}

void PutZeroBeforePoint(Text& text) {
    if (text.starts_with(u".")) text.insert(0, u"0");
    if (text.starts_with(u"-.")) text.insert(1, u"0");
}

}  // namespace commtest
