#include "simulator/framing.h"

#include <utility>

#include "simulator/modbus_ascii_frames.h"
#include "simulator/modbus_rtu_frames.h"
#include "simulator/native_frames.h"

namespace simulator {

namespace {

constexpr std::size_t kLongestFrame = 4096;  // what comes beyond it is no request
constexpr double kSilenceMs = 20;            // ends what is no request of Modbus RTU

char StartOf(Framing framing) { return framing == Framing::Native ? kFrameStart : kAsciiStart; }

}  // namespace

std::optional<Framing> FramingOf(int code) {
    switch (code) {
        case 11:
        case 12:
        case 13: return Framing::Native;
        case 21:
        case 22: return Framing::ModbusAscii;
        case 31:
        case 32:
        case 33:
        case 34:
        case 35:
        case 51: return Framing::ModbusRtu;
        default: return std::nullopt;
    }
}

std::optional<std::string> ContentOfFrame(int code, int address, std::string_view frame) {
    switch (FramingOf(code).value()) {
        case Framing::Native: return ContentOfRequest(code, address, frame);
        case Framing::ModbusAscii: return ContentOfAsciiRequest(code, address, frame);
        case Framing::ModbusRtu: break;
    }
    return ContentOfRtuRequest(address, frame);
}

std::string MakeReplyFrame(int code, int address, std::string_view content, bool isLastPart) {
    switch (FramingOf(code).value()) {
        case Framing::Native: return MakeReply(code, address, content, isLastPart ? kFrameEnd : kPartEnd);
        case Framing::ModbusAscii: return MakeAsciiReply(code, address, content);
        case Framing::ModbusRtu: break;
    }
    return MakeRtuReply(address, content);
}

Spared SparedBytes(Framing framing) {
    switch (framing) {
        case Framing::Native: return {};
        case Framing::ModbusAscii: return {.head = 1, .tail = 2, .keepsDigits = true};
        case Framing::ModbusRtu: break;
    }
    return {.head = 3, .tail = 0};
}

std::vector<std::string> RequestReader::Take(std::string_view bytes, double timeMs) {
    std::vector<std::string> frames;
    const bool wasSilent = timeMs - lastByteMs_ > kSilenceMs;
    if (framing_ == Framing::ModbusRtu && wasSilent && !frame_.empty())
        frames.push_back(std::exchange(frame_, {}));
    lastByteMs_ = timeMs;
    while (!bytes.empty()) {
        const char byte = bytes.front();
        bytes.remove_prefix(1);
        if (framing_ == Framing::Native && byte == kContinue) {
            frames.emplace_back(1, kContinue);
        } else if (EndsFrame(byte, bytes.empty())) {
            frames.push_back(std::exchange(frame_, {}));
        }
    }
    return frames;
}

// A check word that ends in 00 makes the bytes in front of that 00 look like a request with one byte of data.
bool RequestReader::EndsFrame(char byte, bool isLastOfItsPiece) {
    const bool hasLines = framing_ != Framing::ModbusRtu;
    if (framing_ == Framing::ModbusAscii && byte == '\n') return false;
    if (hasLines && byte == StartOf(framing_)) frame_.clear();
    if (frame_.size() < kLongestFrame) frame_ += byte;
    if (hasLines) return byte == kFrameEnd;
    return IsWholeRtuRequest(frame_) && (isLastOfItsPiece || frame_.size() > kShortestRtuRequest);
}

}  // namespace simulator
