#pragma once

#include "runtime/hex_text.h"

namespace commtest {

// A frame in ASCII digits: ":", the body, its check word, the line end. Each character of it is one byte.
// `checkWord` is LrcOfPairs or LrcOfChars.
//   ":010300100001EB\r\n"
HexText AsciiReadFrame(const Text& body, Text (*checkWord)(Text));

// The frame of a write ends in a carriage return alone.
//   ":0106001003E8FE\r"
HexText AsciiWriteFrame(const Text& body);

// Gives a frame its leading blank and takes a leading colon, " 3A", off it. Nothing is appended.
void MakeCRCWordModBusAscii(HexText& frame);

}  // namespace commtest
