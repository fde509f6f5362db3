#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "runtime/hex_text.h"

// The check words that only the check-word tool computes.
namespace commtest {

// CRC-16/MODBUS over the bytes 0 to `lastIndex`, four upper-case digits, the byte that leaves first in front:
//   01 03 00 00 00 01 -> "840A"
// Error 9 where the bytes end before that.
Text Crc16OfByteArray(const std::vector<std::uint8_t>& bytes, int lastIndex);

// A check of its own over a HexText, whose leading blank may be missing: the registers of CRC-16 from 00,
// then the low and the high half of their exclusive or, each with 9 as its high digit. Nothing where a pair
// is not hexadecimal.
//   " 01 03" -> "90 9D"
std::optional<Text> Crc16OfHexText(HexText text);
inline constexpr TextView kNoHexText = u"对不起，数据串中含有非法字符,无法完成校验！";

// Replaces the first character by "@" and appends the exclusive or of the characters behind it, as at least
// two upper-case digits, and CR. Gives the check; a text of less than 3 characters stays and has none.
//   "@01RD" -> "@01RD17\r", check "17"
Text AppendXorCheck(Text& text);

}  // namespace commtest
