#include "numbers/ieee_code_explainer.h"

#include "numbers/bit_text.h"
#include "numbers/code_text.h"
#include "numbers/explanation.h"

namespace commtest {

void ExplainIeeeCode(const Text& code, Text& explanation) {
    Text bits;
    for (int position = 1; position <= 7; position += 2) bits += ByteToBitText(CodeByteAt(code, position));
    explanation.clear();
    // Q33: as far as its title promises.
    AppendSteps(explanation, {{u"IEEE754浮点数转换成具体数值的计算过程--书写中"}});
    AppendLines(explanation, {
                                 {u"第一步: 把数值 ", code, u" 转换成二进制数据:   ", bits},
                                 {u"1位符号位(S)    8位指数(e)    23位尾数(M,共32位)  具体数值如下:"},
                                 {u"          符号位   ", Left(bits, 1)},
                                 {u"          指数     ", Mid(bits, 2, 8)},
                                 {u"          尾数     ", Mid(bits, 10)},
                             });
}

}  // namespace commtest
