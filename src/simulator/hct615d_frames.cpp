#include "simulator/hct615d_frames.h"

#include "simulator/bytes.h"

namespace simulator {

namespace {

constexpr char kLead = '\xAA';
constexpr std::size_t kRequestLead = 7;
constexpr std::size_t kCoveredSize = 24;  // of a reply
constexpr int kLargestAddress = 255;

std::string Head(int address) { return Bytes({0x07, 0x02, address, 0x01, 0x00}); }

std::string RequestTo(int address) {
    return std::string(kRequestLead, kLead) + Head(address) + Hct615dCheck(Head(address));
}

}  // namespace

std::string Hct615dCheck(std::string_view covered) {
    int sum = 0;
    int exclusiveOr = 0;
    for (const char c : covered) {
        sum += static_cast<unsigned char>(c);
        exclusiveOr ^= static_cast<unsigned char>(c);
    }
    return Bytes({sum, exclusiveOr});
}

std::optional<std::string> ContentOfHct615dRequest(int address, std::string_view frame) {
    if (address > kLargestAddress || frame != RequestTo(address)) return std::nullopt;
    return std::string();
}

std::string MakeHct615dReply(int address, std::string_view content) {
    std::string covered = Head(address);
    covered.resize(kCoveredSize - content.size(), '\0');
    covered += content;
    return std::string(kHct615dReplyLead, kLead) + covered + Hct615dCheck(covered) +
           std::string(kHct615dReplyTail, '\0');
}

}  // namespace simulator
