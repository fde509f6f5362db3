// Arbitrary texts and codes through the explainers: what they tell has to agree with the register codecs.
//
// The first byte chooses the explainer, the second what the rest is: even, the text itself; odd, the bytes of
// a code. For ExplainCommCode the second byte also chooses the instrument's number.

#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "numbers/bcd_code_explainer.h"
#include "numbers/code_text.h"
#include "numbers/comm_code_explainer.h"
#include "numbers/device_code_explainers.h"
#include "numbers/float_code_explainers.h"
#include "numbers/float_value_explainers.h"
#include "numbers/ieee_code_explainer.h"
#include "numbers/reading_length.h"
#include "numbers/register_codecs.h"
#include "numbers/two_byte_explainers.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest::fuzz {

namespace {

namespace format = register_format;

constexpr TextView kRefusal = u"数据非法,无法演示转换过程";
constexpr ReadingLength kGridReading = {100000000, 9};

// What a call leaves: the text as rewritten, the explanation and the number of its run-time error.
struct Told {
    Text text;
    Text explanation;
    int error = 0;

    bool EndsWith(const Text& words) const { return explanation.ends_with(words); }
};

template <typename Explainer>
Told ToldOver(const Text& text, Text before, Explainer explain) {
    Told told{text, std::move(before), 0};
    try {
        explain(told.text, told.explanation);
    } catch (const RuntimeError& error) {
        told.error = error.Number();
        Require(told.error == RuntimeError::kOverflow || told.error == RuntimeError::kTypeMismatch,
                "an explainer raises errors 6 and 13 only");
        Require(told.text == text, "a text that cannot be explained stays");
    }
    return told;
}

template <typename Explainer>
Told Tell(const Text& text, Explainer explain) {
    const Told told = ToldOver(text, {}, explain);
    Require(ToldOver(text, u"what stood there before", explain).explanation == told.explanation,
            "an explanation is replaced");
    Require(told.error != 0 || !told.explanation.empty(), "an explainer has something to say");
    return told;
}

// The codec's result; its error in place of the text's where it raises one.
template <typename Codec>
Told Converted(const Text& text, int formatNumber, Codec codec) {
    Told converted{text, {}, 0};
    try {
        codec(converted.text, formatNumber);
    } catch (const RuntimeError& error) {
        converted.error = error.Number();
    }
    return converted;
}

bool IsCode(const Text& text) { return text.find_first_not_of(u"0123456789ABCDEF") == Text::npos; }

void RequireNoError(const Told& told) { Require(told.error == 0, "this explainer takes every text"); }

// --- One check an explainer ---

void SignMagnitude(const Text& code, bool isSwapped) {
    const Told told = Tell(code, isSwapped ? ExplainSignMagnitudeSwapped : ExplainSignMagnitude);
    RequireNoError(told);
    const int length = Len(code);
    const bool isKnown = length == 2 || length == 4 || length == 8 || length == 16;
    Require((told.explanation == kRefusal) == !isKnown, "exactly the other lengths are refused");
    if (length != 4 || !IsCode(code)) return;
    const int number = isSwapped ? format::kSignMagnitudeSwapped : format::kSignMagnitude;
    const Text value = Converted(code, number, CommCodeToValue).text;
    // The code of 32768 reads as "-0", which the correction makes "0", and which goes uncorrected in order.
    const bool isNegative = value.starts_with(u"-") && value != u"-0";
    if (isNegative) Require(told.EndsWith(u"(-1) --->  " + value + u"\r\n\r\n"), "the value is corrected");
    const bool isCorrected = Contains(told.explanation, u"修正后数值");
    Require(isCorrected == (isNegative || (isSwapped && value == u"-0")), "only negative ones are corrected");
}

void TwosComplement(const Text& code) {
    const Told told = Tell(code, ExplainTwosComplement);
    RequireNoError(told);
    if (Len(code) != 2 && Len(code) != 4) Require(told.explanation == kRefusal, "other lengths are refused");
    if (Len(code) != 4 || !IsCode(code) || code == u"8000") return;
    const Text value = Converted(code, format::kTwosComplement, CommCodeToValue).text;
    Require(told.EndsWith(u" --->  " + value + u"\r\n\r\n"), "it ends in the codec's value");
}

void FloatCode(const Text& code) {
    const Told told = Tell(code, ExplainFloatCode);
    RequireNoError(told);
    Require(Contains(told.explanation, u" 转换后的数值是  " + told.text + u"\r\n"), "the value is told");
    Text reading = NumberText(ToNumber(told.text));
    ShortenReading(reading, kGridReading);
    Require(reading == Converted(code, format::kCustomFloat, CommCodeToValue).text,
            "shortened it is the codec's value");
}

void AccumulatedValue(const Text& code) {
    const Told told = Tell(code, ExplainAccumulatedValue);
    RequireNoError(told);
    const Text rest = Converted(Mid(code, 9, 8), format::kCustomFloat, CommCodeToValue).text;
    Require(told.EndsWith(u"  *  100  +  " + rest), "it ends in the value of the second half");
}

void FloatValue(const Text& value) {
    const Told told = Tell(value, ExplainValueToFloatCode);
    const Told code = Converted(value, format::kCustomFloat, ValueToCommCode);
    Require(told.error == code.error, "it fails where the codec fails");
    const Told twin =
        Tell(value, [](Text& text, Text& explanation) { ExplainValueToIeee(text, explanation); });
    Require(twin.error == told.error && twin.text == value, "the twin fails alike and leaves the value");
    Require(Behind(twin.explanation, u'\n') == Behind(told.explanation, u'\n'),
            "the twin differs by its title");
    if (told.error != 0) return;
    const bool isZero = ToNumber(value) == 0;
    Require(told.text == (isZero ? u"100000000" : code.text), "the code is the codec's, but for zero");
    Require(told.EndsWith(u" 就是 : " + told.text + u"\r\n\r\n"), "it ends in the code");
}

void IeeeCode(const Text& code) {
    const Told told = Tell(code, ExplainIeeeCode);
    RequireNoError(told);
    const TextView label = u"转换成二进制数据:   ";
    const int from = InStr(told.explanation, Text(label) + (CodeByteAt(code, 1) < 128 ? u"0" : u"1"));
    Require(from > 0, "the bits begin with the sign");
    const Text bits = Mid(told.explanation, from + static_cast<int>(label.size()), 32);
    Require(bits.find_first_not_of(u"01") == Text::npos && Len(bits) == 32, "there are 32 bits");
    Require(told.EndsWith(u"尾数     " + Mid(bits, 10) + u"\r\n"), "the last field is the mantissa");
}

void BcdCode(const Text& code) {
    const Told told = Tell(code, ExplainBcdCode);
    const Text fitted = FittedToWidth(code, 10);
    const Told value = Converted(fitted, format::kBcd, CommCodeToValue);
    Require(told.error == value.error, "it fails where the codec fails");
    if (told.error == 0) Require(told.EndsWith(fitted + u" --->  " + value.text), "it ends in the value");
}

void DeviceCode(const Text& code) {
    RequireNoError(Tell(code, ExplainTqCode));
    const Told digits = Tell(code, ExplainFlowMeterBcd);
    RequireNoError(digits);
    Require(Contains(digits.explanation, u" --->  " + code + u"\r\n"), "the digits are told as they stand");
    const Told display = Tell(code, ExplainDisplayCode);
    RequireNoError(display);
    const Text value = Converted(code, format::kPlainHex, CommCodeToValue).text;
    Require(Contains(display.explanation, code + u" ---> " + value + u"\r\n"), "the codec's value is told");
}

void CommCode(const Text& code, int number) {
    const Text meterCode = u"11" + FittedToWidth(WholeText(number), 2) + u"0101";
    Require(ExplainerNumberOf(meterCode) == number, "the number is read from the catalogue number");
    const auto explain = [&](Text& text, Text& explanation) {
        ExplainCommCode(meterCode, text, explanation);
    };
    const Told told = ToldOver(code, u"what stood there before", explain);
    Require(told.error == 0 || number == format::kBcd, "only a BCD code can be refused");
    const bool hasExplainer = number <= 10 || number == 12;
    Require(told.explanation.empty() == !hasExplainer, "only a number without an explainer gives nothing");
}

Text CodeOf(std::string_view bytes) {
    Text code;
    for (const char byte : bytes) code += CodeByteOf(static_cast<unsigned char>(byte));
    return code;
}

void Run(std::string_view input) {
    if (input.size() < 2) return;
    const int explainer = static_cast<unsigned char>(input[0]) % 9;
    const int choice = static_cast<unsigned char>(input[1]);
    const std::string_view rest = input.substr(2);
    const Text text = choice % 2 == 0 ? FromUtf8(rest) : CodeOf(rest);
    switch (explainer) {
        case 0: return SignMagnitude(text, true);
        case 1: return SignMagnitude(text, false);
        case 2: return TwosComplement(text);
        case 3: return FloatCode(text);
        case 4: return AccumulatedValue(text);
        case 5: return FloatValue(text);
        case 6: return IeeeCode(text);
        case 7: return BcdCode(text);
        default: break;
    }
    DeviceCode(text);
    CommCode(text, choice / 2 % 100);
}

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    commtest::fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
