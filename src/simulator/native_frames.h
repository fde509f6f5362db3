#pragma once

#include <optional>
#include <string>
#include <string_view>

// Frames of the native protocol: "@", two address characters, command and data, two check characters, line
// end.
//   "@01RD17\r"  "@01RE012302" check "\r"
// Code 11 checks by exclusive or, code 12 by the low byte of the sum, code 13 as code 11 with fill: two or
// more "0" between check and line end of a request, two "0" before the check of a reply. The check covers
// everything behind the "@".
namespace simulator {

inline constexpr char kFrameStart = '@';
inline constexpr char kFrameEnd = '\r';
inline constexpr char kPartEnd = '\n';   // more parts follow
inline constexpr char kContinue = '\n';  // the host asks for the next part

std::string CheckWord(int code, std::string_view covered);

std::string AddressCharacters(int address);

// Command and data of a request for that address, nothing if the frame is for another one, its check is wrong
// or it is no request. Zeros at the end of a frame of code 13 can be fill, check word or data: the first
// reading that is a request counts. The frame begins with the start and ends with the end character.
std::optional<std::string> ContentOfRequest(int code, int address, std::string_view frame);

std::string MakeReply(int code, int address, std::string_view content, char end = kFrameEnd);

}  // namespace simulator
