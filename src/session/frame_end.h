#pragma once

#include "runtime/hex_text.h"

namespace commtest {

// End rules: has the reply to a request come to its end? Digit pairs are searched for in the frame's text;
// the blank in front of each byte keeps "0A" from being found across two bytes.

// A byte 0A or 0D.
bool EndsWithLineEnd(const HexText& reply, const HexText& request);

// A byte 0A.
bool EndsWithLineFeed(const HexText& reply, const HexText& request);

// Any one of: the third byte equals the data bytes of a read reply; the echo of a write with function 06;
// eight bytes with function 09; seven bytes or more with function 08; five bytes with a function that begins
// with 8 (an exception). A function 10 answer of eight bytes meets them only by the chance of its contents
// and else waits for the time-out (Q61).
bool EndsByRtuRule(const HexText& reply, const HexText& request);

// At least ten bytes, at least 64 bytes.
bool HasTenBytes(const HexText& reply, const HexText& request);
bool HasSixtyFourBytes(const HexText& reply, const HexText& request);

}  // namespace commtest
