#pragma once

#include <cstdint>
#include <vector>

#include "runtime/text.h"

namespace commtest {

// A frame as text: a blank and two upper-case hexadecimal digits a byte. Byte k (from 1) has its blank at
// position 3k-2 and its digits at 3k-1 and 3k; n bytes take 3n characters. The three bytes "@01":
//   " 40 30 31"
using HexText = Text;

// A longer text keeps its rightmost characters, a shorter one is left-filled with "0".
void FitTextWidth(Text& text, int width);
Text FittedToWidth(Text text, int width);

// Mode 0: HexText to readable text, a character a byte; the first line feed becomes the three characters
// "\0A", the first carriage return "\0D", later ones stay. An unreadable pair raises error 13; an empty text
// stays empty. Modes 1 and 2: each character's code of code page 936 behind a blank, a double-byte character
// thus with four digits. Any other mode changes nothing.
void ConvertHexText(Text& text, int mode);
Text ReadableOf(HexText frame);        // mode 0
HexText HexTextOfReadable(Text text);  // mode 1

// Puts a blank in front of a text that does not begin with one.
void EnsureLeadingBlank(Text& text);

// Appends a byte (0 to 255), or each of several, as a blank and two digits.
void AppendHexByte(HexText& frame, int byte);
void AppendHexBytes(HexText& frame, std::string_view bytes);

}  // namespace commtest
