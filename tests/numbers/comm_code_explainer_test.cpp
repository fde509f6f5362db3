#include "numbers/comm_code_explainer.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string Explained(const Text& meterCode, const Text& code) {
    Text explanation = u"what stood there before";
    ExplainCommCode(meterCode, code, explanation);
    return ToUtf8(explanation);
}

struct Choice {
    const char16_t* meterCode;
    const char* words;  // of the right explainer only
};

TEST(ExplainCommCode, NumberInTheCatalogueNumberPicksTheExplainer) {
    const Choice choices[] = {
        {u"11000101", "第一步: 高低位对调,即   8001 ---> 0180\r\n"},
        {u"31010101", "        10000 - 8001 ---> 7FFF\r\n"},
        {u"11020101", "第一步: 高低位对调,即   8001 ---> 0180\r\n"},
        {u"31030101", "第一步: 把数值 8001 转换成二进制数据:   10000000000000010000000000000000\r\n"},
        {u"31040101", "即从十六进制转换成十进制,即  8001 ---> -32767\r\n"},
        {u"22050101", "整个过程就是 0000008001 --->  8001"},
        {u"31060101", "注意: 这里数据的高低位是不进行对调的!\r\n"},
        {u"11070101", "第一步: 高低位对调,即   8001 ---> 0180\r\n"},
        {u"11080101", "第一步: 高低位对调,即   8001 ---> 0180\r\n"},
        {u"51100101", "第一步: 将数据 8001 直接组合后,看作十进制数据 即  --->  8001\r\n"},
        {u"51120101", "TQ流量计数据转换成具体数值的计算过程\r\n"},
    };
    for (const Choice& choice : choices) {
        EXPECT_NE(Explained(choice.meterCode, u"8001").find(choice.words), std::string::npos)
            << ToUtf8(choice.meterCode);
    }
}

TEST(ExplainCommCode, NumberNineSaysThatItIsNotWritten) {
    EXPECT_EQ(Explained(u"11090101", u"8001"), "未编写");
}

TEST(ExplainCommCode, NumberWithoutAnExplainerGivesNothing) {
    for (const Text meterCode : {u"11110101", u"11130101", u"11990101", u"4220"}) {
        EXPECT_EQ(Explained(meterCode, u"8001"), "") << ToUtf8(meterCode);
    }
}

TEST(ExplainCommCode, CatalogueNumberWithoutTheTwoDigitsCountsAsZero) {
    for (const Text meterCode : {u"", u"11", u"11AB"}) {
        EXPECT_EQ(Explained(meterCode, u"123456"), "数据非法,无法演示转换过程") << ToUtf8(meterCode);
    }
}

TEST(ExplainCommCode, ErrorOfAnExplainerPasses) {
    EXPECT_EQ(ErrorOf([] { Explained(u"22050101", u"0A00001234"); }), 13);
}

}  // namespace
}  // namespace commtest
