#include "numbers/float_value_explainers.h"

#include <cmath>

#include "numbers/code_text.h"
#include "numbers/custom_float.h"
#include "numbers/explanation.h"
#include "runtime/number.h"

namespace commtest {

namespace {

void AppendSigns(Text& explanation, const Text& value, bool isNegative, const Text& magnitude, bool isSmall) {
    AppendSteps(explanation,
                {
                    {u"第一步: 判断数据 ", value, u" 是正数还是负数,由此来产生 数符,这里数符 SF = ",
                     isNegative ? u"1" : u"0"},
                    {u"第二步: 判断数据 ", magnitude,
                     u" 是否小于0.5(即 2的 -1次方),由此来产生 阶符,这里阶符 JF = ", isSmall ? u"1" : u"0"},
                });
}

void AppendExponentOfLarge(Text& explanation, const Text& magnitude, const Text& firstByte) {
    AppendSteps(explanation, {
                                 {u"第三步: 对大于 1 的数据 ", magnitude,
                                  u" 进行除2运算,一直到余数小于1为止,"
                                  u"由此来产生 阶码,与数符、阶符合成第一个数据 A1 = ",
                                  firstByte},
                             });
}

void AppendExponentOfSmall(Text& explanation, const Text& magnitude, const Text& firstByte) {
    AppendSteps(explanation, {
                                 {u"第三步: 对小于 0.5 的数据 ", magnitude,
                                  u" 进行乘2运算,一直到积数大于1为止,"
                                  u"由此来产生 阶码,与数符、阶符合成第一个数据 A1 = ",
                                  firstByte},
                             });
}

void AppendMantissa(Text& explanation, double mantissa) {
    AppendSteps(explanation,
                {
                    {u"        以上数值经过一系列的计算后数据是 0", NumberText(mantissa),
                     u" 保留在 A0中转入下一步计算;"},
                    {u"        这里请注意:对于0.5到1之间的数值,阶码是0,这里就不去计算了."},
                    {u"第四步: 对A0进行三次乘以 256,每乘一次,就将数据的整数部分取出赋值到 A2 A3 A4 中去;"},
                });
}

Text ExplainedCode(TextView title, const Text& value, Text& explanation) {
    explanation.clear();
    const double number = ToNumber(value);
    const bool isNegative = number <= 0;  // Q31: 0, too
    const Text magnitudeText = NumberText(std::fabs(number));
    const double magnitude = ToNumber(magnitudeText);
    const bool isSmall = magnitude < 0.5;
    const CustomFloatParts parts = SplitIntoCustomFloat(magnitude, isNegative);
    const Text firstByte = HexOf(parts.firstByte);

    AppendSteps(explanation, {{title}});
    AppendSigns(explanation, value, isNegative, magnitudeText, isSmall);
    if (magnitude >= 1) AppendExponentOfLarge(explanation, magnitudeText, firstByte);
    if (isSmall) AppendExponentOfSmall(explanation, magnitudeText, firstByte);
    AppendMantissa(explanation, parts.mantissa);
    const auto [second, third, fourth] = MantissaBytes(parts.mantissa);
    const Text code = CodeByteOf(parts.firstByte) + second + third + fourth;
    AppendSteps(explanation,
                {
                    {u"        这时 A2 A3 A4 的值分别是   ", second, u"  ", third, u"  ", fourth},
                    {u"第五步: 这时,我们已经求出了数值 ", value, u"  转换成 浮点数 就是 : ", code},
                });
    return code;
}

}  // namespace

void ExplainValueToFloatCode(Text& value, Text& explanation) {
    value = ExplainedCode(u"具体数值转换成自定义浮点数的计算过程", value, explanation);
}

// Q32: the steps are those of the custom float.
void ExplainValueToIeee(const Text& value, Text& explanation) {
    ExplainedCode(u"IEEE754浮点数转换成具体数值的计算过程", value, explanation);
}

}  // namespace commtest
