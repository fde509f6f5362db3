#include "numbers/bcd_code_explainer.h"

#include "numbers/bcd.h"
#include "numbers/bit_text.h"
#include "numbers/explanation.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

void ExplainBcdCode(const Text& code, Text& explanation) {
    const Text fitted = FittedToWidth(code, 10);
    const Text bits = ByteToBitText(HexParse(Mid(fitted, 2, 1)));
    const Text sign = Mid(bits, 5, 1);
    const Text decimals = Mid(bits, 6, 3);
    explanation.clear();
    AppendSteps(explanation, {
                                 {u"BCD码转换成具体数值的计算过程"},
                                 {u"第一步: 将数据 ", fitted, u" 分解成两个部分,前两个和后面八个 即 ",
                                  Left(fitted, 2), u" 和 ", Mid(fitted, 3)},
                                 {u"第二步: 前两位数据,转换成二进制格式,舍去前12位(B15~B4),即 00000000",
                                  Left(bits, 4), u"  ", sign, u"  ", decimals},
                                 {u"第三步: 余下的 B3位 表示正负数(0为正,1为负),B2~B0三位为小数点的位置 "},
                                 {u"        这里,正负标志位是  ", sign},
                                 {u"        这里,小数点的位数是  ", WholeText(BitTextToByte(decimals))},
                                 {u"第四步: 数据后面的八位,直接看作是10进制数即可"},
                             });
    Text value = fitted;
    BcdToValue(value);
    AppendLastWords(explanation, {u"整个过程就是 ", fitted, u" --->  ", value});
}

}  // namespace commtest
