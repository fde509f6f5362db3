#include "numbers/ieee_code_explainer.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

std::string Explained(const Text& code) {
    Text explanation = u"what stood there before";
    ExplainIeeeCode(code, explanation);
    return ToUtf8(explanation);
}

// 3.14 is 0 10000000 10010001111010111000011.
TEST(ExplainIeeeCode, ShowsTheThreeBitFields) {
    EXPECT_EQ(Explained(u"4048F5C3"),
              "IEEE754浮点数转换成具体数值的计算过程--书写中\r\n\r\n"
              "第一步: 把数值 4048F5C3 转换成二进制数据:   01000000010010001111010111000011\r\n"
              "1位符号位(S)    8位指数(e)    23位尾数(M,共32位)  具体数值如下:\r\n"
              "          符号位   0\r\n"
              "          指数     10000000\r\n"
              "          尾数     10010001111010111000011\r\n");
}

TEST(ExplainIeeeCode, SignIsTheFirstBit) {
    EXPECT_TRUE(Explained(u"80000001")
                    .ends_with("          符号位   1\r\n"
                               "          指数     00000000\r\n"
                               "          尾数     00000000000000000000001\r\n"));
}

TEST(ExplainIeeeCode, MissingPairsAreZeros) {
    EXPECT_TRUE(
        Explained(u"FF").ends_with("          符号位   1\r\n"
                                   "          指数     11111110\r\n"
                                   "          尾数     00000000000000000000000\r\n"));
}

}  // namespace
}  // namespace commtest
