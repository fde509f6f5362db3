#include "simulator/novax_frames.h"

#include "simulator/bytes.h"

namespace simulator {

namespace {

constexpr int kAddressOffset = 128;
constexpr std::size_t kHeadSize = 2;
constexpr std::size_t kContentSize = 4;

bool IsCommand(int command) { return command == kNovaxRead || command == kNovaxWrite; }

}  // namespace

std::string NovaxCheck(int address, std::string_view content) {
    const int command = ByteAt(content, 0);
    const int number = ByteAt(content, 1);
    const int data = ByteAt(content, 2) + 256 * ByteAt(content, 3);
    return LowByteFirst(static_cast<std::uint32_t>(256 * number + data + command + address));
}

std::optional<std::string> ContentOfNovaxRequest(int address, std::string_view frame) {
    const int own = address + kAddressOffset;
    if (frame.size() != kNovaxRequestSize || ByteAt(frame, 0) != own || ByteAt(frame, 1) != own)
        return std::nullopt;
    const std::string_view content = frame.substr(kHeadSize, kContentSize);
    if (!IsCommand(ByteAt(content, 0))) return std::nullopt;
    if (frame.substr(kHeadSize + kContentSize) != NovaxCheck(address, content)) return std::nullopt;
    return std::string(content);
}

std::string MakeNovaxReply(std::string_view content) {
    std::uint32_t sum = 0;
    for (const char byte : content) sum += static_cast<unsigned char>(byte);
    return std::string(content) + LowByteFirst(sum);
}

}  // namespace simulator
