#include "simulator/modbus_ascii_frames.h"

#include "simulator/hex_digits.h"

namespace simulator {

namespace {

constexpr int kCharacterSumCode = 22;
constexpr char kEnd = '\r';
constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

std::string AsciiCheckWord(int code, std::string_view digits) {
    const std::string covered =
        code == kCharacterSumCode ? std::string(digits) : BytesOfHex(digits).value_or(std::string());
    unsigned sum = 0;
    for (const char c : covered) sum += static_cast<unsigned char>(c);
    const char complement = static_cast<char>((0U - sum) & 0xFF);
    return HexOfBytes({&complement, 1});
}

std::optional<std::string> ContentOfAsciiRequest(int code, int address, std::string_view frame) {
    constexpr std::size_t kAround = 4;  // start, check word, end
    if (frame.size() < kAround || frame.front() != kAsciiStart || frame.back() != kEnd) return std::nullopt;
    const std::string_view digits = frame.substr(1, frame.size() - kAround);
    const auto bytes = BytesOfHex(digits);
    if (!bytes || bytes->size() < 2 || static_cast<unsigned char>(bytes->front()) != address)
        return std::nullopt;
    if (frame.substr(1 + digits.size(), 2) != AsciiCheckWord(code, digits)) return std::nullopt;
    return bytes->substr(1);
}

std::string MakeAsciiReply(int code, int address, std::string_view content) {
    const std::string digits = HexOfBytes(static_cast<char>(address) + std::string(content));
    return kAsciiStart + digits + AsciiCheckWord(code, digits) + std::string(kLineEnd);
}

}  // namespace simulator
