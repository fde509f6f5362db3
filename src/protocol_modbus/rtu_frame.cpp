#include "protocol_modbus/rtu_frame.h"

#include "numbers/crc16.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr std::size_t kByteWidth = 3;
constexpr std::size_t kCrcWidth = 6;

int DigitValue(char16_t digit) {
    if (digit >= u'0' && digit <= u'9') return digit - u'0';
    return digit >= u'A' && digit <= u'F' ? digit - u'A' + 10 : -1;
}

std::uint8_t ByteAt(TextView frame, std::size_t blank) {
    if (blank + 2 < frame.size()) {
        const int high = DigitValue(frame[blank + 1]);
        const int low = DigitValue(frame[blank + 2]);
        if (high >= 0 && low >= 0) return static_cast<std::uint8_t>(high << 4 | low);
    }
    return static_cast<std::uint8_t>(HexParse(frame.substr(blank + 1, 2)));  // Q111: whatever stands there
}

HexText CrcBehind(TextView frame) {
    Crc16 crc;
    for (std::size_t blank = 0; blank < frame.size(); blank += kByteWidth) crc.Fold(ByteAt(frame, blank));
    HexText digits;
    AppendHexByte(digits, crc.First());
    AppendHexByte(digits, crc.Second());
    return digits;
}

}  // namespace

void AppendRtuCrc(HexText& frame) {
    EnsureLeadingBlank(frame);
    frame += CrcBehind(frame);
}

bool TestRtuCrc(const HexText& frame) {
    if (frame.size() <= kCrcWidth || frame.front() != u' ') return false;
    const auto data = TextView(frame).substr(0, frame.size() - kCrcWidth);
    return TextView(frame).substr(data.size()) == CrcBehind(data);
}

HexText SplitAddress(const Text& address) { return Left(address, 2) + u" " + Mid(address, 3); }

}  // namespace commtest
