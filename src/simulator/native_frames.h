#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

inline constexpr char kFrameStart = '@';
inline constexpr char kFrameEnd = '\r';
inline constexpr char kPartEnd = '\n';   // ends a part that is followed by another
inline constexpr char kContinue = '\n';  // alone on the line: asks for the next part

// Two hexadecimal digits over the text behind "@": under codes 11 and 13 the exclusive or of its bytes, under
// code 12 their sum modulo 256.
std::string CheckWord(int code, std::string_view text);

// At least two upper-case hexadecimal digits.
std::string AddressText(unsigned address);

// "@01RD17" under code 11 gives 01RD: what stands between "@" and the check word, if that is right. `frame`
// is without its line end. Under code 13 pairs of "00" follow the check word, and where the text ends in
// zeros itself several readings can be right: all of them are given, the one with the fewest pairs first.
std::vector<std::string_view> CheckedTexts(int code, std::string_view frame);

// "@", the text, under code 13 two fill bytes "00", the check word and the line end.
std::string ReplyFrame(int code, std::string_view text, char lineEnd);

}  // namespace simulator
