#include "protocol_native/check_words.h"

#include <cstdint>

#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kSecondByte = 5;  // position of its digits
constexpr int kByteWidth = 3;

std::int16_t ByteAt(const HexText& frame, int position) {
    return static_cast<std::int16_t>(HexParse(Mid(frame, position, 2)));
}

void AppendCheckWord(HexText& frame, int value) {
    frame += HexTextOfReadable(FittedToWidth(HexOf(static_cast<double>(value)), 2));
}

bool Test(void (*make)(HexText&), const HexText& frame) {
    constexpr int kTooShort = 22;
    constexpr int kLineEnd = kByteWidth;
    constexpr int kCheckWordAndLineEnd = 2 * kByteWidth + kLineEnd;
    if (Len(frame) <= kTooShort) return false;
    HexText computed = Left(frame, Len(frame) - kCheckWordAndLineEnd);
    make(computed);
    return computed == Left(frame, Len(frame) - kLineEnd);
}

}  // namespace

void MakeCRCWordTq(HexText& frame) {
    EnsureLeadingBlank(frame);
    std::int16_t value = ByteAt(frame, kSecondByte);
    for (int position = kSecondByte + kByteWidth; position <= Len(frame); position += kByteWidth) {
        value = static_cast<std::int16_t>(value ^ ByteAt(frame, position));
    }
    AppendCheckWord(frame, value);
}

void MakeCRCWordTqTwo(HexText& frame) {
    EnsureLeadingBlank(frame);
    std::int16_t sum = ByteAt(frame, kSecondByte);
    for (int position = kSecondByte + kByteWidth; position <= Len(frame); position += kByteWidth) {
        sum = Add16(sum, ByteAt(frame, position));
    }
    AppendCheckWord(frame, sum & 0xFF);
}

bool TestCRCWordTq(const HexText& frame) { return Test(MakeCRCWordTq, frame); }
bool TestCRCWordTqTwo(const HexText& frame) { return Test(MakeCRCWordTqTwo, frame); }

}  // namespace commtest
