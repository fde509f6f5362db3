#include "simulator/native_frames.h"

#include "simulator/text_fields.h"

namespace simulator {

namespace {

constexpr int kSumCode = 12;
constexpr int kFilledCode = 13;
constexpr std::string_view kFill = "00";
constexpr std::size_t kCheckLength = 2;

}  // namespace

std::string CheckWord(int code, std::string_view text) {
    unsigned check = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        check = code == kSumCode ? check + byte : check ^ byte;
    }
    return HexDigits(check, kCheckLength);
}

std::string AddressText(unsigned address) {
    std::size_t width = 2;
    while (address >> (4 * width) != 0) ++width;
    return HexDigits(address, width);
}

std::vector<std::string_view> CheckedTexts(int code, std::string_view frame) {
    std::vector<std::string_view> texts;
    if (frame.empty() || frame.front() != kFrameStart) return texts;
    frame.remove_prefix(1);
    do {
        if (code == kFilledCode) {
            if (!frame.ends_with(kFill)) break;
            frame.remove_suffix(kFill.size());
        }
        if (frame.size() < kCheckLength) break;
        const std::string_view text = frame.substr(0, frame.size() - kCheckLength);
        if (frame.substr(text.size()) == CheckWord(code, text)) texts.push_back(text);
    } while (code == kFilledCode);
    return texts;
}

std::string ReplyFrame(int code, std::string_view text, char lineEnd) {
    std::string covered(text);
    if (code == kFilledCode) covered += kFill;
    return kFrameStart + covered + CheckWord(code, covered) + lineEnd;
}

}  // namespace simulator
