#include "numbers/register_codecs.h"

#include "numbers/bcd.h"
#include "numbers/bit_text.h"
#include "numbers/code_text.h"
#include "numbers/custom_float.h"
#include "numbers/ieee_single.h"
#include "numbers/reading_length.h"
#include "numbers/two_byte_code.h"
#include "runtime/number.h"

namespace commtest {

namespace {

namespace format = register_format;

constexpr ReadingLength kGridReading = {100000000, 9};
constexpr ReadingLength kAutoReading = {100000, 6};
constexpr int kCodeToValue = -1;
constexpr int kValueToCode = 0;

void ReadPlainHex(Text& text) { text = WholeText(HexParse(text)); }

void ReadSignMagnitudeSwapped(Text& text) {
    text = SignMagnitudeValue(CodeByteAt(text, 3), CodeByteAt(text, 1));
}

void ReadCustomFloat(Text& text, const ReadingLength& room) {
    text = NumberText(CustomFloatValue(text));
    ShortenReading(text, room);
}

void ReadIeeeSingle(Text& text) {
    text = SingleText(IeeeSingleValue(text));
    ShortenReading(text, kGridReading);
}

void ReadSwappedByLength(Text& text) {
    switch (Len(text)) {
        case 2: return ReadPlainHex(text);
        case 4: return ReadSignMagnitudeSwapped(text);
        case 8: return CommCodeToValue(text, format::kCustomFloat);
        default: return;  // Q11: other lengths stay
    }
}

void ReadAccumulated(Text& text) {
    Text hundreds = Left(text, 8);
    Text rest = Mid(text, 9);
    // Q22: each half is shortened before the sum.
    CommCodeToValue(hundreds, format::kCustomFloat);
    CommCodeToValue(rest, format::kCustomFloat);
    text = NumberText(ToNumber(hundreds) * 100 + ToNumber(rest));
}

void AutoCodeToValue(Text& text) {
    const int length = Len(text);
    if (length == 0 || length > 8) return;
    if (length <= 2) return ReadPlainHex(text);
    if (length <= 4) return ReadSignMagnitudeSwapped(text);
    ReadCustomFloat(text, kAutoReading);
}

void AutoValueToTwoBytes(Text& text) {
    const double value = ToNumber(text);
    // Q14: unlike in format 0 the fraction of a negative value is not cut.
    if (value < 0) text = NumberText(-value + 0x8000);
    text = HexOf(text);
    PadWideText(text, 4, kZerosOnTheLeft);
    SwapTwoBytes(text);
}

void AutoValueToCode(Text& text, int size) {
    switch (size) {
        case 1:
            text = HexOf(text);
            PadWideText(text, 2, kZerosOnTheLeft);
            return;
        case 2: return AutoValueToTwoBytes(text);
        case 4: return ValueToCustomFloat(text);
        default: return;
    }
}

}  // namespace

void ValueToCommCode(Text& text, int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
            ValueToSignMagnitude(text);
            SwapTwoBytes(text);
            return;
        case format::kTwosComplement: return ValueToTwosComplement(text, 4);
        case format::kCustomFloat: return ValueToCustomFloat(text);
        case format::kIeeeSingle: return ValueToIeeeSingle(text);
        case format::kBcd: return ValueToBcd(text);
        case format::kOneByte: return ValueToTwosComplement(text, 2);
        // Q13: sign and magnitude, although kUneven reads two's complement.
        case format::kUneven:
        case format::kSignMagnitude: return ValueToSignMagnitude(text);
        default: return;  // Q12: these only read
    }
}

void CommCodeToValue(Text& text, int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped: return ReadSwappedByLength(text);
        case format::kCustomFloat: return ReadCustomFloat(text, kGridReading);
        case format::kIeeeSingle:
        case format::kIeeeSingleReadOnly: return ReadIeeeSingle(text);
        case format::kBcd: return BcdToValue(text);
        case format::kSignMagnitude:
            text = SignMagnitudeValue(CodeByteAt(text, 1), CodeByteAt(text, 3));
            return;
        case format::kTwosComplement:
        case format::kOneByte:
        case format::kPlainHex:
        case format::kUneven: return ReadPlainHex(text);
        case format::kAccumulated: return ReadAccumulated(text);
        default: return;
    }
}

void ConvertCommCodeAuto(Text& text, int direction, int size) {
    if (direction == kCodeToValue) AutoCodeToValue(text);
    if (direction == kValueToCode) AutoValueToCode(text, size);
}

}  // namespace commtest
