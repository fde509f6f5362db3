#pragma once

#include <optional>
#include <string>
#include <string_view>

// Frames of Modbus RTU: an address byte, the content (function and data), two check bytes, the low one first.
//   01 | 03 00 10 00 01 | 85 CF
namespace simulator {

// The two check bytes in their order on the line.
std::string RtuCheck(std::string_view covered);

inline constexpr std::size_t kShortestRtuRequest = 7;  // function 06 with one byte of data

// Whether the bytes are a request to its end: right check bytes at a length that the function has. Function
// 06 carries one, two or four bytes of data, function 10 as many as it says; all others have eight bytes.
bool IsWholeRtuRequest(std::string_view bytes);

// Function and data of a request for that address; nothing if the frame is for another one or no request.
std::optional<std::string> ContentOfRtuRequest(int address, std::string_view frame);

std::string MakeRtuReply(int address, std::string_view content);

}  // namespace simulator
