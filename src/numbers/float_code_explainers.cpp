#include "numbers/float_code_explainers.h"

#include "numbers/code_text.h"
#include "numbers/custom_float.h"
#include "numbers/explanation.h"
#include "numbers/reading_length.h"
#include "numbers/register_codecs.h"
#include "runtime/number.h"

namespace commtest {

namespace {

Text FloatReading(Text code) {
    CommCodeToValue(code, register_format::kCustomFloat);
    return code;
}

Text BitText(bool isSet) { return isSet ? u"1" : u"0"; }
Text SignText(bool isNegative) { return isNegative ? u"-1" : u"1"; }

}  // namespace

void ExplainFloatCode(Text& code, Text& explanation) {
    const int first = CodeByteAt(code, 1);
    const bool isNegative = (first & custom_float::kNegative) != 0;
    const bool hasNegativeExponent = (first & custom_float::kNegativeExponent) != 0;
    const Text exponent = WholeText(first & custom_float::kExponent);
    const Text mantissa = NumberText(CustomFloatMantissa(code));  // Q35: behind a fixed "0"
    Text value = NumberText(CustomFloatValue(code));              // Q34: not shortened
    PutZeroBeforePoint(value);
    explanation.clear();
    AppendSteps(
        explanation,
        {
            {u"自定义浮点数转换成具体数值的计算过程"},
            {u"第一步: 将数据 ", code, u" 分解成 四个16进制数据 A1 = ", Mid(code, 1, 2), u"、 A2 = ",
             Mid(code, 3, 2), u"、 A3 = ", Mid(code, 5, 2), u"、 A4 = ", Mid(code, 7, 2), u" "},
            {u"第二步: 将A2 A3 A4分别除以 256 、256 * 256、256 * 256 * 256 后相加 得到 A0 = 0", mantissa},
            {u"第三步: 将A1转换成2进制数后,将最高位N7和次高位N6 分别用 SF(数符) 和 JF(阶符) 表示 即:SF = ",
             BitText(isNegative), u"  JF = ", BitText(hasNegativeExponent)},
            {u"        这里 SF表示数据的正负,JF表示数据阶数的正负(均为 0 表示正数, 1 表示负数),"
             u"为了运算方便,将0用1表示,1用-1表示;"},
            {u"        于是转换后的数值就是 SF = ", SignText(isNegative), u"  JF = ",
             SignText(hasNegativeExponent)},
            {u"第四步: 将A1(2进制数)最高位N7和次高位N6 置零 -> 取后6位数,返回到A1,即 阶码 A1 = ", exponent},
            {u"第五步: 按照公式 : Value = SF * A0 * (2^(JF * A1)) 得出 数据: ", value},
            {u"        也就是说 浮点数 ", code, u" 转换后的数值是  ", value},
        });
    AppendLastWords(explanation, {u"        这里数值最多取小数点后4位。 (如数值结尾有 E - ?? 字样,"
                                  u"表示 要乘以 10的负??次方<科学计数法> -- 基本上就是 0 了)"});
    code = value;
}

void ExplainAccumulatedValue(const Text& code, Text& explanation) {
    const Text hundreds = Left(code, 8);
    const Text rest = Mid(code, 9, 8);
    const Text hundredsValue = FloatReading(hundreds);
    const Text restValue = FloatReading(rest);
    explanation.clear();
    AppendSteps(explanation, {
                                 {u"所谓8个字节的累积值(合成数据)的计算过程"},
                                 {u"第一步: 取前 8 位 字符  ", hundreds, u"  ,转换成数值  ", hundredsValue},
                                 {u"第二步: 取后 8 位 字符  ", rest, u"  ,转换成数值  ", restValue},
                                 {u"第三步: 将第一个数值 ", hundredsValue, u" 乘以 100 加上 第二个数值 ",
                                  restValue, u" 之和就是累积值"},
                             });
    AppendLastWords(explanation,
                    {u"        即:    S累积值  =  ", hundredsValue, u"  *  100  +  ", restValue});
}

}  // namespace commtest
