#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Frames of the NOVAX instruments. A request is the address plus 128, twice, the content (command, parameter
// number, two bytes of data, the low one first) and two check bytes:
//   81 81 | 52 12 00 00 | 53 12
// A reply is a content of eight bytes and the sum of these, in 16 bits, the low byte first; it names neither
// address nor parameter:
//   FA 00 FE FF 03 C8 6A FF | 2B 05
namespace simulator {

inline constexpr std::size_t kNovaxRequestSize = 8;
inline constexpr int kNovaxRead = 0x52;
inline constexpr int kNovaxWrite = 0x43;

// The two check bytes of a request in their order on the line, the low one first: 256 times the parameter
// number, the data, the command and the address, added up in 16 bits.
std::string NovaxCheck(int address, std::string_view content);

// Command, number and data of a request for that address; nothing if the frame is for another one, its check
// is wrong or its command is none of the two. No request is for an address beyond 127.
std::optional<std::string> ContentOfNovaxRequest(int address, std::string_view frame);

std::string MakeNovaxReply(std::string_view content);

}  // namespace simulator
