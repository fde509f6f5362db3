#include "simulator/modbus_rtu_frames.h"

#include <cstdint>

#include "simulator/bytes.h"

namespace simulator {

namespace {

constexpr std::size_t kCheckSize = 2;
constexpr std::size_t kUsualSize = 8;
constexpr int kWriteOne = 0x06;
constexpr int kWriteSeveral = 0x10;

bool IsLengthOfRequest(std::string_view bytes) {
    constexpr std::size_t kHeadOfOne = 4;      // address, function, register
    constexpr std::size_t kHeadOfSeveral = 7;  // and two counts
    const std::size_t size = bytes.size();
    switch (ByteAt(bytes, 1)) {
        case kWriteOne: {
            const std::size_t data = size - kHeadOfOne - kCheckSize;
            return data == 1 || data == 2 || data == 4;
        }
        case kWriteSeveral:
            return size > kHeadOfSeveral &&
                   size == kHeadOfSeveral + static_cast<std::size_t>(ByteAt(bytes, kHeadOfSeveral - 1)) +
                               kCheckSize;
        default: return size == kUsualSize;
    }
}

}  // namespace

std::string RtuCheck(std::string_view covered) {
    std::uint32_t value = 0xFFFF;
    for (const char c : covered) {
        value ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? (value >> 1) ^ 0xA001 : value >> 1;
    }
    return LowByteFirst(value);
}

bool IsWholeRtuRequest(std::string_view bytes) {
    if (bytes.size() < kShortestRtuRequest || !IsLengthOfRequest(bytes)) return false;
    const std::size_t covered = bytes.size() - kCheckSize;
    return bytes.substr(covered) == RtuCheck(bytes.substr(0, covered));
}

std::optional<std::string> ContentOfRtuRequest(int address, std::string_view frame) {
    if (!IsWholeRtuRequest(frame) || ByteAt(frame, 0) != address) return std::nullopt;
    return std::string(frame.substr(1, frame.size() - 1 - kCheckSize));
}

std::string MakeRtuReply(int address, std::string_view content) {
    std::string frame(1, static_cast<char>(address));
    frame += content;
    return frame + RtuCheck(frame);
}

}  // namespace simulator
