#pragma once

#include <optional>
#include <string>
#include <string_view>

// Frames of Modbus ASCII: ":", then address, content (function and data) and check word, each byte as two
// hexadecimal digits, then the line end. A write comes without the line feed, and reads are taken at their
// carriage return as well.
//   ":010300100001EB\r"
// The check word of code 21 is the two's complement of the sum of the bytes, that of code 22 of the sum of
// the characters.
namespace simulator {

inline constexpr char kAsciiStart = ':';

std::string AsciiCheckWord(int code, std::string_view digits);

// Function and data, in bytes, of a request for that address; nothing if the frame is for another one, its
// check is wrong or its digits are no bytes. The frame begins with the colon and ends with the carriage
// return.
std::optional<std::string> ContentOfAsciiRequest(int code, int address, std::string_view frame);

std::string MakeAsciiReply(int code, int address, std::string_view content);

}  // namespace simulator
