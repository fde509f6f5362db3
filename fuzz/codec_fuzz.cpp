// Arbitrary texts through the register codecs, and numbers there and back where a format promises it.
//
// The first byte chooses the routine, the second its format number, direction or size; the rest is the text.

#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "numbers/register_codecs.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest::fuzz {

namespace {

namespace format = register_format;

constexpr int kCodeToValue = -1;
constexpr int kValueToCode = 0;

// The number of the run-time error that a call raises, 0 for none. Nothing else may leave it.
template <typename Call>
int ErrorOf(Call&& call) {
    try {
        call();
        return 0;
    } catch (const RuntimeError& error) {
        const int number = error.Number();
        Require(number == RuntimeError::kOverflow || number == RuntimeError::kTypeMismatch,
                "a codec raises errors 6 and 13 only");
        return number;
    }
}

bool IsHex(const Text& text) { return text.find_first_not_of(u"0123456789ABCDEF") == Text::npos; }

// --- Texts of any kind ---

struct Width {
    int least = 0;
    int most = 0;  // 0: the format leaves the text
};

constexpr int kAny = 1000;

Width WidthOfCode(int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
        case format::kTwosComplement:
        case format::kSignMagnitude:
        case format::kUneven: return {4, 4};
        case format::kOneByte: return {2, 2};
        case format::kIeeeSingle: return {8, 8};
        case format::kCustomFloat: return {8, kAny};
        case format::kBcd: return {10, kAny};
        default: return {};
    }
}

void CodeOfAnyText(const Text& text, int formatNumber) {
    Text code = text;
    const int error = ErrorOf([&] { ValueToCommCode(code, formatNumber); });
    const Width width = WidthOfCode(formatNumber);
    if (width.most == 0) {
        Require(error == 0 && code == text, "a format without a code leaves the text");
        return;
    }
    if (error == RuntimeError::kTypeMismatch && formatNumber != format::kBcd) {
        Require(code == text, "a text that is no number stays");
    }
    if (error != 0) return;
    Require(Len(code) >= width.least && Len(code) <= width.most, "a code has the width of its format");
    if (formatNumber != format::kBcd) Require(IsHex(code), "a code is of hexadecimal digits");
}

void ValueOfAnyText(const Text& text, int formatNumber) {
    Text value = text;
    const int error = ErrorOf([&] { CommCodeToValue(value, formatNumber); });
    const int length = Len(text);
    const bool isKnown = formatNumber >= 0 && formatNumber <= 12 && formatNumber != 4 && formatNumber != 10;
    const bool isOddLength =
        formatNumber == format::kSignMagnitudeSwapped && length != 2 && length != 4 && length != 8;
    if (!isKnown || isOddLength) Require(error == 0 && value == text, "such a code stays");
    const bool isWhole = formatNumber == format::kTwosComplement || formatNumber == format::kOneByte ||
                         formatNumber == format::kPlainHex || formatNumber == format::kUneven ||
                         formatNumber == format::kSignMagnitude;
    if (isWhole) Require(error == 0 && Whole32(ToNumber(value)) == ToNumber(value), "a whole number is read");
    const bool isShortened =
        formatNumber == format::kCustomFloat || formatNumber == format::kIeeeSingle || formatNumber == 11;
    if (isShortened && error == 0) Require(Len(value) <= 10, "a float is cut to its room");
}

void AutoOfAnyText(const Text& text, int choice) {
    const int direction = choice % 4 - 2;
    const int size = choice / 4 % 6;
    Text converted = text;
    const int error = ErrorOf([&] { ConvertCommCodeAuto(converted, direction, size); });
    const bool hasLength = direction == kCodeToValue && Len(text) >= 1 && Len(text) <= 8;
    const bool hasSize = direction == kValueToCode && (size == 1 || size == 2 || size == 4);
    if (!hasLength && !hasSize) Require(error == 0 && converted == text, "nothing to convert by");
    if (hasLength && error == 0) Require(Len(converted) <= 7, "a reading has its room");
    if (hasSize && error == 0) Require(IsHex(converted), "a code is of hexadecimal digits");
}

void HexTextOfAnyText(const Text& text) {
    HexText frame = text;
    ErrorOf([&] { ConvertHexText(frame, 0); });
    frame = HexTextOfReadable(text);
    const bool isPlain = text.find_first_of(u"\r\n") == Text::npos &&
                         text.find_first_not_of(u' ') != Text::npos && Len(frame) == 3 * Len(text);
    const bool isAscii = isPlain && ToUtf8(text).size() == text.size();
    if (isAscii) Require(ReadableOf(frame) == text, "plain characters come back from HexText");
}

// --- Numbers there and back ---

void ComesBack(const Text& value, int formatNumber) {
    Text text = value;
    ValueToCommCode(text, formatNumber);
    CommCodeToValue(text, formatNumber);
    Require(text == value, "a number within its format comes back");
}

void ComesBackByItself(const Text& value, int size) {
    Text text = value;
    ConvertCommCodeAuto(text, kValueToCode, size);
    ConvertCommCodeAuto(text, kCodeToValue, 0);
    Require(text == value, "a number within its size comes back");
}

void WholeNumberThereAndBack(std::int16_t number) {
    const Text value = WholeText(number);
    const bool isByte = number >= 0 && number <= 255;
    ComesBack(value, format::kTwosComplement);
    if (isByte) ComesBack(value, format::kOneByte);
    if (isByte) ComesBackByItself(value, 1);
    if (number >= 0) ComesBack(value, format::kUneven);
    if (number == INT16_MIN) return;
    ComesBack(value, format::kSignMagnitudeSwapped);
    ComesBack(value, format::kSignMagnitude);
    ComesBack(value, format::kCustomFloat);
    ComesBack(value, format::kIeeeSingle);
    ComesBackByItself(value, 2);
    ComesBackByItself(value, 4);
}

// Eight digits with the decimals as typed; a negative number with more than one decimal cannot be read.
void DecimalNumberThereAndBack(std::uint32_t number, bool isNegative) {
    const int decimals = static_cast<int>(number % 8);
    const std::uint32_t digits = 10000000 + number / 8 % 90000000;
    Text value = WholeText(digits);
    if (decimals > 0) value.insert(value.size() - static_cast<std::size_t>(decimals), u".");
    if (!isNegative) {
        ComesBack(value, format::kBcd);
    } else if (decimals <= 1) {
        ComesBack(u"-" + value, format::kBcd);
    } else {
        Text code = u"-" + value;
        ValueToCommCode(code, format::kBcd);
        const int error = ErrorOf([&] { CommCodeToValue(code, format::kBcd); });
        Require(error == RuntimeError::kTypeMismatch, "a letter among the decimals is not read");
    }
}

void NumbersThereAndBack(std::string_view bytes) {
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(0, 4)) number = number << 8 | static_cast<unsigned char>(byte);
    WholeNumberThereAndBack(static_cast<std::int16_t>(number));
    DecimalNumberThereAndBack(number, bytes.size() % 2 != 0);
}

void Run(std::string_view input) {
    if (input.size() < 2) return;
    const int routine = static_cast<unsigned char>(input[0]) % 5;
    const int choice = static_cast<signed char>(input[1]);
    const std::string_view rest = input.substr(2);
    const Text text = FromUtf8(rest);
    if (routine == 0) CodeOfAnyText(text, choice);
    if (routine == 1) ValueOfAnyText(text, choice);
    if (routine == 2) AutoOfAnyText(text, static_cast<unsigned char>(choice));
    if (routine == 3) HexTextOfAnyText(text);
    if (routine == 4) NumbersThereAndBack(rest);
}

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    commtest::fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
