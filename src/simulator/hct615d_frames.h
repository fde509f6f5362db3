#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Frames of the HCT615D flow meters. There is one request, seven bytes AA, then 07 02, the address and 01 00
// with their check bytes:
//   AA AA AA AA AA AA AA | 07 02 01 01 00 | 0B 05
// A reply has 64 bytes: 34 bytes AA; 24 that the check bytes cover, the same five in front, zeros, the eleven
// of the content at the end; the check bytes; four zeros. Who reads it looks at content and check bytes
// alone.
namespace simulator {

inline constexpr std::size_t kHct615dRequestSize = 14;

// What no check byte covers, in front of a reply and at its end.
inline constexpr std::size_t kHct615dReplyLead = 34;
inline constexpr std::size_t kHct615dReplyTail = 4;

// The two check bytes in their order on the line: the low byte of the sum, and the exclusive or.
std::string Hct615dCheck(std::string_view covered);

// The content of the request to that address, which is empty; nothing for any other frame. No request is for
// an address beyond 255.
std::optional<std::string> ContentOfHct615dRequest(int address, std::string_view frame);

// The content has eleven bytes.
std::string MakeHct615dReply(int address, std::string_view content);

}  // namespace simulator
