#include "simulator/framing.h"

#include <utility>

#include "simulator/hct615d_frames.h"
#include "simulator/modbus_ascii_frames.h"
#include "simulator/modbus_rtu_frames.h"
#include "simulator/native_frames.h"
#include "simulator/novax_frames.h"

namespace simulator {

namespace {

constexpr std::size_t kLongestFrame = 4096;  // what comes beyond it is no request
constexpr double kSilenceMs = 20;            // ends what is no request of a framing without lines

bool HasLines(Framing framing) { return framing == Framing::Native || framing == Framing::ModbusAscii; }

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
        case 41: return Framing::Novax;
        case 42: return Framing::Hct615d;
        default: return std::nullopt;
    }
}

std::optional<std::string> ContentOfFrame(int code, int address, std::string_view frame) {
    switch (FramingOf(code).value()) {
        case Framing::Native: return ContentOfRequest(code, address, frame);
        case Framing::ModbusAscii: return ContentOfAsciiRequest(code, address, frame);
        case Framing::ModbusRtu: return ContentOfRtuRequest(address, frame);
        case Framing::Novax: return ContentOfNovaxRequest(address, frame);
        case Framing::Hct615d: break;
    }
    return ContentOfHct615dRequest(address, frame);
}

std::string MakeReplyFrame(int code, int address, std::string_view content, bool isLastPart) {
    switch (FramingOf(code).value()) {
        case Framing::Native: return MakeReply(code, address, content, isLastPart ? kFrameEnd : kPartEnd);
        case Framing::ModbusAscii: return MakeAsciiReply(code, address, content);
        case Framing::ModbusRtu: return MakeRtuReply(address, content);
        case Framing::Novax: return MakeNovaxReply(content);
        case Framing::Hct615d: break;
    }
    return MakeHct615dReply(address, content);
}

Spared SparedBytes(Framing framing) {
    switch (framing) {
        case Framing::Native: return {};
        case Framing::ModbusAscii: return {.head = 1, .tail = 2, .keepsDigits = true};
        case Framing::ModbusRtu: return {.head = 3, .tail = 0};
        case Framing::Novax: return {.head = 0, .tail = 0};
        case Framing::Hct615d: break;
    }
    return {.head = kHct615dReplyLead, .tail = kHct615dReplyTail};
}

std::vector<std::string> RequestReader::Take(std::string_view bytes, double timeMs) {
    std::vector<std::string> frames;
    const bool wasSilent = timeMs - lastByteMs_ > kSilenceMs;
    if (!HasLines(framing_) && wasSilent && !frame_.empty()) frames.push_back(std::exchange(frame_, {}));
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

// Under RTU a check word that ends in 00 makes the bytes in front of that 00 look like a request with one
// byte of data.
bool RequestReader::EndsFrame(char byte, bool isLastOfItsPiece) {
    if (framing_ == Framing::ModbusAscii && byte == '\n') return false;
    if (HasLines(framing_) && byte == StartOf(framing_)) frame_.clear();
    if (frame_.size() < kLongestFrame) frame_ += byte;
    switch (framing_) {
        case Framing::Native:
        case Framing::ModbusAscii: return byte == kFrameEnd;
        case Framing::ModbusRtu:
            return IsWholeRtuRequest(frame_) && (isLastOfItsPiece || frame_.size() > kShortestRtuRequest);
        case Framing::Novax: return frame_.size() == kNovaxRequestSize;
        case Framing::Hct615d: break;
    }
    return frame_.size() == kHct615dRequestSize;
}

}  // namespace simulator
