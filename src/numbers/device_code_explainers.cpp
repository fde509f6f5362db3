#include "numbers/device_code_explainers.h"

#include "numbers/explanation.h"
#include "runtime/number.h"

namespace commtest {

void ExplainDisplayCode(const Text& code, Text& explanation) {
    explanation.clear();
    AppendSteps(explanation, {
                                 {u"电量集中显示仪特殊数据转换成具体数值的计算过程"},
                                 {u"不论多少个字节,数据直接转换,即从十六进制转换成十进制,即  ", code,
                                  u" ---> ", WholeText(HexParse(code))},
                                 {u"    注意: 如果该行小数点为 非0,则数值需除以10的X次方(X为该数值) "},
                             });
}

void ExplainFlowMeterBcd(const Text& code, Text& explanation) {
    explanation.clear();
    AppendSteps(explanation, {
                                 {u"HCT615D流量表BCD码转换成具体数值的计算过程(定制)"},
                                 {u"第一步: 将数据 ", code, u" 直接组合后,看作十进制数据 即  --->  ", code},
                                 {u"第二步: 参数 压力和瞬时流量 除以 100,其他不变"},
                             });
}

void ExplainTqCode(const Text& /*code*/, Text& explanation) {
    explanation.clear();
    AppendSteps(explanation, {{u"TQ流量计数据转换成具体数值的计算过程"}});
    AppendLastWords(explanation, {u"暂时未编写"});
}

}  // namespace commtest
