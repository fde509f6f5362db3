#include "numbers/bcd.h"

#include <cmath>

#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kNegative = 8;
constexpr int kDigits = 8;

double PowerOfTen(int exponent) { return std::pow(10.0, exponent); }

}  // namespace

void ValueToBcd(Text& text) {
    const double whole = std::floor(ToNumber(text));
    // Q23: all of 0 to below 1 is zero, whatever the fraction.
    if (whole == 0) {
        text = u"0000000000";
        return;
    }
    int sign = 0;
    if (whole < 0) {
        sign = kNegative;
        text.erase(0, 1);
    }
    int decimals = 0;
    if (Contains(text, u".")) {  // Q24: as typed, zeros at the end included
        decimals = Len(Behind(text, u'.'));
        text = NumberText(Finite(ToNumber(text) * PowerOfTen(decimals)));
    }
    FitTextWidth(text, kDigits);
    text = u"0" + HexOf(sign + decimals) + text;
}

void BcdToValue(Text& text) {
    // Q25: a decimal digit, although ValueToBcd writes letters, too.
    const int signAndDecimals = ToWhole16(Mid(text, 2, 1));
    const int decimals = signAndDecimals % kNegative;
    const double value = ToNumber(Mid(text, 3)) / PowerOfTen(decimals);
    text = FixedTextWithZero(value, decimals);
    if (signAndDecimals >= kNegative) text.insert(0, u"-");
}

}  // namespace commtest
