#include "simulator/native_request.h"

#include "simulator/text_fields.h"

namespace simulator {

namespace {

using Kind = Request::Kind;

constexpr int kLengthInAddressCode = 12;
constexpr std::size_t kAddressWidth = 4;

std::optional<Request> ParseRead(std::string_view text) {
    const std::string_view count = text.substr(std::min(text.size(), kAddressWidth));
    const auto location = ParseHex(text.substr(0, kAddressWidth));
    const auto byteCount = ParseHex(count);
    if (!location || !byteCount || count.size() < 2 || count.size() > 3) return std::nullopt;
    return Request{.kind = Kind::kReadParameters, .location = *location, .byteCount = *byteCount};
}

bool IsCommandText(std::string_view text) {
    return text == "3" || text == "4" || (text.starts_with('5') && text.size() == 5);
}

std::optional<Request> ParseWrite(std::string_view text) {
    if (text.empty() || text[0] < '1' || text[0] > '9') return std::nullopt;
    const int digit = text[0] - '0';
    if (IsCommandText(text)) {
        return Request{.kind = Kind::kCommand, .length = digit, .value = std::string(text.substr(1))};
    }
    const auto location = ParseHex(text.substr(1, kAddressWidth));
    if (!location || text.size() < 1 + kAddressWidth) return std::nullopt;
    return Request{.kind = Kind::kWriteParameter,
                   .location = *location,
                   .length = digit,
                   .value = std::string(text.substr(1 + kAddressWidth))};
}

std::optional<Request> ParseWriteWithLengthInAddress(std::string_view text) {
    constexpr std::size_t kLengthPlace = kAddressWidth + 1;
    if (text.size() <= kLengthPlace || text[kAddressWidth] != '0' || text[0] < '1' || text[0] > '9') {
        return std::nullopt;
    }
    const auto location = ParseHex(text.substr(1, kAddressWidth - 1));
    if (!location || text[kLengthPlace] != text[0]) return std::nullopt;
    return Request{.kind = Kind::kWriteParameter,
                   .location = *location,
                   .length = text[0] - '0',
                   .value = std::string(text.substr(kLengthPlace + 1))};
}

}  // namespace

std::optional<Request> ParseRequest(int code, std::string_view text) {
    if (text == "RD") return Request{.kind = Kind::kReadDynamic};
    if (text == "RR") return Request{.kind = Kind::kReadStatic};
    if (text.starts_with("RE")) return ParseRead(text.substr(2));
    if (!text.starts_with('W')) return std::nullopt;
    text.remove_prefix(1);
    return code == kLengthInAddressCode ? ParseWriteWithLengthInAddress(text) : ParseWrite(text);
}

std::optional<unsigned> LocationOf(int code, std::string_view address) {
    return ParseHex(code == kLengthInAddressCode ? address.substr(std::min<std::size_t>(address.size(), 1))
                                                 : address);
}

}  // namespace simulator
