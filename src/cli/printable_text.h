#pragma once

#include <string>

#include "runtime/text.h"

// Texts on their way to a terminal: what an instrument or a catalogue holds must not steer it.
namespace commtest {

// As UTF-8. A line end (CR LF) becomes "\n"; any other control character, also one of 80 to 9F and those that
// change the direction of writing, becomes a backslash and its hexadecimal code: "\0D", "\1B", "\202E".
std::string PrintableText(TextView text);

// The same in one line: line ends, however many in a row, become one blank.
std::string PrintableLine(TextView text);

// What PrintableText shows by its code, where it is no line end.
bool IsControl(char16_t unit);

// Cells that a text takes on a terminal: two of a Chinese character, none of a mark that stands upon another
// character, one where Unicode leaves it to the font ("℃", "…") and of a control character.
int DisplayWidth(TextView text);

// The beginning of a text that takes at most so many cells.
TextView CutToWidth(TextView text, int width);

// The text, or as much of its beginning as fits in front of "…".
Text ShortenedToWidth(TextView text, int width);

}  // namespace commtest
