#include "protocol_modbus/rtu_frame.h"

#include "numbers/crc16.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr std::size_t kByteWidth = 3;
constexpr int kCrcWidth = 6;

}  // namespace

void AppendRtuCrc(HexText& frame) {
    EnsureLeadingBlank(frame);
    Crc16 crc;
    for (std::size_t blank = 0; blank < frame.size(); blank += kByteWidth) {
        // Q111: whatever stands there.
        crc.Fold(static_cast<std::uint8_t>(HexParse(TextView(frame).substr(blank + 1, 2))));
    }
    AppendHexByte(frame, crc.First());
    AppendHexByte(frame, crc.Second());
}

bool TestRtuCrc(const HexText& frame) {
    if (Len(frame) < kCrcWidth) return false;
    HexText computed = Left(frame, Len(frame) - kCrcWidth);
    AppendRtuCrc(computed);
    return computed == frame;
}

HexText SplitAddress(const Text& address) { return Left(address, 2) + u" " + Mid(address, 3); }

}  // namespace commtest
