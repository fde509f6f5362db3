#include "numbers/two_byte_explainers.h"

#include "numbers/code_text.h"
#include "numbers/explanation.h"
#include "numbers/float_code_explainers.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kSignBit = 0x8000;
constexpr int kFullTurn = 0x10000;

using Explainer = void (*)(const Text& code, Text& explanation);

// HexParse would read a code of 8000 and above as negative (Q4), were it not for the fifth digit.
int UnsignedValue(const Text& code) { return HexParse(u"0" + code); }

void ExplainOneByte(const Text& code, Text& explanation) {
    AppendLastWords(explanation, {u"单字节数据直接转换,即从十六进制转换成十进制,就是  ", code, u" ---> ",
                                  WholeText(HexParse(code))});
}

void RefuseCode(Text& explanation) { AppendLastWords(explanation, {u"数据非法,无法演示转换过程"}); }

void AppendCorrection(Text& explanation, int value) {
    AppendSteps(explanation, {
                                 {u"        即: 修正后数值 = ( ", WholeText(value),
                                  u" - 32768 ) * (-1) --->  ", WholeText(kSignBit - value)},
                             });
}

void ExplainTwoBytesSwapped(const Text& code, Text& explanation) {
    Text swapped = code;
    SwapTwoBytes(swapped);
    const int value = UnsignedValue(swapped);
    AppendSteps(explanation,
                {
                    {u"双字节(原码)转换成数值"},
                    {u"第一步: 高低位对调,即   ", code, u" ---> ", swapped},
                    {u"第二步: 数据从十六进制转换成十进制,就是  ", swapped, u" ---> ", WholeText(value)},
                    {u"第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 "},
                });
    if (value >= kSignBit) AppendCorrection(explanation, value);
}

void ExplainTwoBytesInOrder(const Text& code, Text& explanation) {
    const int value = UnsignedValue(code);
    AppendSteps(explanation,
                {
                    {u"双字节(原码)转换成数值"},
                    {u"注意: 这里数据的高低位是不进行对调的!"},
                    {u"第一步: 数据从十六进制转换成十进制,就是  ", code, u" ---> ", WholeText(value)},
                    {u"第二步: 如果该数值大于 32768,则减去 32768 并乘以 -1 "},
                });
    // Q29: not ">=" as in the other order.
    if (value > kSignBit) AppendCorrection(explanation, value);
}

void ExplainByLength(const Text& code, Text& explanation, Explainer explainTwoBytes) {
    explanation.clear();
    Text value = code;
    switch (Len(code)) {
        case 2: return ExplainOneByte(code, explanation);
        case 4: return explainTwoBytes(code, explanation);
        case 8: return ExplainFloatCode(value, explanation);
        case 16: return ExplainAccumulatedValue(code, explanation);
        default: return RefuseCode(explanation);
    }
}

void ExplainTwoBytesComplement(const Text& code, Text& explanation) {
    AppendSteps(explanation,
                {
                    {u"双字节(补码)转换成数值"},
                    {u"第一步: 判断是否大于 8000 (这里是指16进制),如小于8000,则直接转换成10进制即可"},
                });
    if (code < u"8000") {
        AppendSteps(explanation,
                    {{u"        转换成十进制, 即  ", code, u" --->  ", WholeText(HexParse(code))}});
        return;
    }
    const Text complement = HexOf(kFullTurn - UnsignedValue(code));
    // Q30: the complement of 8000 is 8000 again and gets a second minus sign.
    const Text value = WholeText(HexParse(complement));
    AppendSteps(explanation,
                {
                    {u"第二步: 用10000 减去该数值,然后转换成十进制,即  "},
                    {u"        10000 - ", code, u" ---> ", complement},
                    {u"        然后转换成十进制,再乘以 -1 , 即  ", complement, u" --->  -", value},
                });
}

}  // namespace

void ExplainSignMagnitudeSwapped(const Text& code, Text& explanation) {
    ExplainByLength(code, explanation, ExplainTwoBytesSwapped);
}

void ExplainSignMagnitude(const Text& code, Text& explanation) {
    ExplainByLength(code, explanation, ExplainTwoBytesInOrder);
}

void ExplainTwosComplement(const Text& code, Text& explanation) {
    explanation.clear();
    switch (Len(code)) {
        case 2: return ExplainOneByte(code, explanation);
        case 4: return ExplainTwoBytesComplement(code, explanation);
        default: return RefuseCode(explanation);
    }
}

}  // namespace commtest
