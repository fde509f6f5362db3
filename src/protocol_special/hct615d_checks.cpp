#include "protocol_special/hct615d_checks.h"

#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kByteWidth = 3;

}  // namespace

HexText Hct615dCheckBytes(const HexText& bytes) {
    int sum = 0;
    int exclusiveOr = 0;
    for (int blank = 1; blank <= Len(bytes); blank += kByteWidth) {
        const int value = HexParse(Mid(bytes, blank + 1, 2));
        sum += value;
        exclusiveOr ^= value;
    }
    HexText checks;
    AppendHexByte(checks, sum & 0xFF);
    AppendHexByte(checks, exclusiveOr & 0xFF);
    return checks;
}

bool CheckHct615dFrame(const HexText& reply) {
    constexpr int kFirst = 103;
    constexpr int kLength = 24 * kByteWidth;
    return Mid(reply, kFirst + kLength, 2 * kByteWidth) == Hct615dCheckBytes(Mid(reply, kFirst, kLength));
}

}  // namespace commtest
