#include "numbers/device_code_explainers.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

using Explainer = void (*)(const Text& code, Text& explanation);

std::string Explained(Explainer explain, const Text& code) {
    Text explanation = u"what stood there before";
    explain(code, explanation);
    return ToUtf8(explanation);
}

TEST(ExplainDisplayCode, ReadsPlainHexadecimal) {
    EXPECT_EQ(Explained(ExplainDisplayCode, u"C8"),
              "电量集中显示仪特殊数据转换成具体数值的计算过程\r\n\r\n"
              "不论多少个字节,数据直接转换,即从十六进制转换成十进制,即  C8 ---> 200\r\n\r\n"
              "    注意: 如果该行小数点为 非0,则数值需除以10的X次方(X为该数值) \r\n\r\n");
}

TEST(ExplainDisplayCode, FourDigitsAreSignedAndMoreAreNot) {
    EXPECT_NE(Explained(ExplainDisplayCode, u"FFFF").find("FFFF ---> -1\r\n"), std::string::npos);
    EXPECT_NE(Explained(ExplainDisplayCode, u"0FFFF").find("0FFFF ---> 65535\r\n"), std::string::npos);
}

TEST(ExplainFlowMeterBcd, ShowsTheDigitsAsTheyStand) {
    EXPECT_EQ(Explained(ExplainFlowMeterBcd, u"00123456"),
              "HCT615D流量表BCD码转换成具体数值的计算过程(定制)\r\n\r\n"
              "第一步: 将数据 00123456 直接组合后,看作十进制数据 即  --->  00123456\r\n\r\n"
              "第二步: 参数 压力和瞬时流量 除以 100,其他不变\r\n\r\n");
}

TEST(ExplainTqCode, SaysThatItIsNotWrittenYet) {
    for (const Text code : {u"", u"04A00000"}) {
        EXPECT_EQ(Explained(ExplainTqCode, code), "TQ流量计数据转换成具体数值的计算过程\r\n\r\n暂时未编写");
    }
}

}  // namespace
}  // namespace commtest
