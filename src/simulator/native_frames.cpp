#include "simulator/native_frames.h"

#include <cstdio>

namespace simulator {

namespace {

constexpr int kSumCode = 12;
constexpr int kFillCode = 13;
constexpr std::string_view kFill = "00";

std::string HexByte(unsigned byte) {
    char text[12];
    std::snprintf(text, sizeof text, "%02X", byte);
    return text;
}

bool IsRequest(std::string_view content) {
    constexpr std::size_t kReadLength = 8;  // "REaaaaHH", one more where HH is above FF
    if (content.starts_with("RE")) return content.size() == kReadLength || content.size() == kReadLength + 1;
    return content == "RD" || content == "RR" || content.starts_with('W');
}

// The content of a body (all between start and end character), if its check word is right and it is a
// request.
std::optional<std::string> CheckedContent(int code, std::string_view addressCharacters,
                                          std::string_view body) {
    if (body.size() < addressCharacters.size() + 2) return std::nullopt;
    const std::string_view covered = body.substr(0, body.size() - 2);
    if (body.substr(covered.size()) != CheckWord(code, covered)) return std::nullopt;
    const std::string_view content = covered.substr(addressCharacters.size());
    return IsRequest(content) ? std::optional<std::string>(content) : std::nullopt;
}

}  // namespace

std::string CheckWord(int code, std::string_view covered) {
    unsigned value = 0;
    for (const char c : covered) {
        const auto byte = static_cast<unsigned char>(c);
        value = code == kSumCode ? (value + byte) & 0xFF : value ^ byte;
    }
    return HexByte(value);
}

std::string AddressCharacters(int address) { return HexByte(static_cast<unsigned>(address)); }

std::optional<std::string> ContentOfRequest(int code, int address, std::string_view frame) {
    const std::string own = AddressCharacters(address);
    if (frame.size() < 2 || frame.front() != kFrameStart || frame.back() != kFrameEnd) return std::nullopt;
    std::string_view body = frame.substr(1, frame.size() - 2);
    if (!body.starts_with(own)) return std::nullopt;
    if (code != kFillCode) return CheckedContent(code, own, body);
    while (body.ends_with(kFill)) {
        body.remove_suffix(kFill.size());
        if (auto content = CheckedContent(code, own, body)) return content;
    }
    return std::nullopt;
}

std::string MakeReply(int code, int address, std::string_view content, char end) {
    std::string body = AddressCharacters(address) + std::string(content);
    if (code == kFillCode) body += kFill;
    return kFrameStart + body + CheckWord(code, body) + end;
}

}  // namespace simulator
