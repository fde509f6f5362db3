#pragma once

#include "runtime/hex_text.h"

namespace commtest {

// Closes an RTU frame: puts the leading blank in front if there is none and the two bytes of the CRC-16
// (numbers/crc16.h) behind. Bytes are taken at every third position, whatever stands there; what is no
// hexadecimal digit counts as 0. Address 1, one register from 0010:
//   "01 03 00 10 00 01" -> " 01 03 00 10 00 01 85 CF"
void AppendRtuCrc(HexText& frame);

// Whether the last two bytes of a received frame are the CRC of those in front. Fewer than three bytes never
// pass.
bool TestRtuCrc(const HexText& frame);

// A four-character address as it stands in a frame: "0010" becomes "00 10".
HexText SplitAddress(const Text& address);

}  // namespace commtest
