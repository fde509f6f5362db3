#include "protocol_special/novax_check_word.h"

#include <cmath>

#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kByteRange = 256;

// The digits of a byte, counted from 1.
Text DigitsOf(const HexText& frame, int byte) { return Mid(frame, 3 * byte - 1, 2); }

}  // namespace

void MakeCRCWordNOVAX(HexText& frame, const Text& address) {
    EnsureLeadingBlank(frame);
    const int data = HexParse(DigitsOf(frame, 6) + DigitsOf(frame, 5));  // Q161: signed
    const int command = HexParse(DigitsOf(frame, 3));
    const int parameter = HexParse(DigitsOf(frame, 4));
    // Q160: the plain address.
    const double sum = parameter * kByteRange + data + command + std::floor(ToNumber(address));
    const Text word = FittedToWidth(HexOf(Whole16(sum)), 4);
    frame += u" " + Mid(word, 3, 2) + u" " + Mid(word, 1, 2);
}

}  // namespace commtest
