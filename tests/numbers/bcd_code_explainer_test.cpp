#include "numbers/bcd_code_explainer.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string Explained(const Text& code) {
    Text explanation = u"what stood there before";
    ExplainBcdCode(code, explanation);
    return ToUtf8(explanation);
}

TEST(ExplainBcdCode, TellsEveryStep) {
    EXPECT_EQ(Explained(u"0900000123"),
              "BCD码转换成具体数值的计算过程\r\n\r\n"
              "第一步: 将数据 0900000123 分解成两个部分,前两个和后面八个 即 09 和 00000123\r\n\r\n"
              "第二步: 前两位数据,转换成二进制格式,舍去前12位(B15~B4),即 000000000000  1  001\r\n\r\n"
              "第三步: 余下的 B3位 表示正负数(0为正,1为负),B2~B0三位为小数点的位置 \r\n\r\n"
              "        这里,正负标志位是  1\r\n\r\n"
              "        这里,小数点的位数是  1\r\n\r\n"
              "第四步: 数据后面的八位,直接看作是10进制数即可\r\n\r\n"
              "整个过程就是 0900000123 --->  -12.3");
}

TEST(ExplainBcdCode, DecimalsAreTheThreeLastBits) {
    const std::string text = Explained(u"0712345678");
    EXPECT_NE(text.find("000000000000  0  111\r\n"), std::string::npos);
    EXPECT_NE(text.find("正负标志位是  0\r\n"), std::string::npos);
    EXPECT_NE(text.find("小数点的位数是  7\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("0712345678 --->  1.2345678"));
}

TEST(ExplainBcdCode, FirstCharacterIsShownButNotRead) {
    const std::string text = Explained(u"F200001234");
    EXPECT_NE(text.find(" 即 F2 和 00001234\r\n"), std::string::npos);
    EXPECT_NE(text.find("000000000000  0  010\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("F200001234 --->  12.34"));
}

TEST(ExplainBcdCode, CodeIsFittedToTenCharacters) {
    EXPECT_TRUE(Explained(u"1234").ends_with("整个过程就是 0000001234 --->  1234"));
    EXPECT_TRUE(Explained(u"990200001234").ends_with("整个过程就是 0200001234 --->  12.34"));
}

TEST(ExplainBcdCode, LetterAmongTheDecimalsRaisesError13BehindTheStepsBefore) {
    Text explanation;
    EXPECT_EQ(ErrorOf([&] { ExplainBcdCode(u"0A00001234", explanation); }), 13);
    const std::string text = ToUtf8(explanation);
    EXPECT_NE(text.find("000000000000  1  010\r\n"), std::string::npos);
    EXPECT_TRUE(
        text.ends_with("小数点的位数是  2\r\n\r\n第四步: 数据后面的八位,直接看作是10进制数即可\r\n\r\n"));
}

}  // namespace
}  // namespace commtest
