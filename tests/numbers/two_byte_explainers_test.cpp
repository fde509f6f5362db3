#include "numbers/two_byte_explainers.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

using Explainer = void (*)(const Text& code, Text& explanation);

std::string Explained(Explainer explain, const Text& code) {
    Text explanation = u"what stood there before";
    explain(code, explanation);
    return ToUtf8(explanation);
}

std::string Swapped(const Text& code) { return Explained(ExplainSignMagnitudeSwapped, code); }
std::string InOrder(const Text& code) { return Explained(ExplainSignMagnitude, code); }
std::string Complement(const Text& code) { return Explained(ExplainTwosComplement, code); }

// --- 原码, low byte first ---

TEST(ExplainSignMagnitudeSwapped, PositiveCodeEndsWithTheRuleForNegativeOnes) {
    EXPECT_EQ(Swapped(u"D204"),
              "双字节(原码)转换成数值\r\n\r\n"
              "第一步: 高低位对调,即   D204 ---> 04D2\r\n\r\n"
              "第二步: 数据从十六进制转换成十进制,就是  04D2 ---> 1234\r\n\r\n"
              "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \r\n\r\n");
}

TEST(ExplainSignMagnitudeSwapped, NegativeCodeIsCorrected) {
    EXPECT_EQ(Swapped(u"D284"),
              "双字节(原码)转换成数值\r\n\r\n"
              "第一步: 高低位对调,即   D284 ---> 84D2\r\n\r\n"
              "第二步: 数据从十六进制转换成十进制,就是  84D2 ---> 34002\r\n\r\n"
              "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \r\n\r\n"
              "        即: 修正后数值 = ( 34002 - 32768 ) * (-1) --->  -1234\r\n\r\n");
}

TEST(ExplainSignMagnitudeSwapped, CorrectionBeginsAt32768Itself) {
    EXPECT_TRUE(Swapped(u"0080").ends_with("( 32768 - 32768 ) * (-1) --->  0\r\n\r\n"));
    EXPECT_TRUE(
        Swapped(u"FF7F").ends_with("7FFF ---> 32767\r\n\r\n"
                                   "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \r\n\r\n"));
    EXPECT_TRUE(Swapped(u"FFFF").ends_with("( 65535 - 32768 ) * (-1) --->  -32767\r\n\r\n"));
}

// --- 原码, high byte first ---

TEST(ExplainSignMagnitude, SaysThatTheBytesAreNotSwapped) {
    EXPECT_EQ(InOrder(u"04D2"),
              "双字节(原码)转换成数值\r\n\r\n"
              "注意: 这里数据的高低位是不进行对调的!\r\n\r\n"
              "第一步: 数据从十六进制转换成十进制,就是  04D2 ---> 1234\r\n\r\n"
              "第二步: 如果该数值大于 32768,则减去 32768 并乘以 -1 \r\n\r\n");
}

TEST(ExplainSignMagnitude, NegativeCodeIsCorrected) {
    EXPECT_EQ(InOrder(u"84D2"),
              "双字节(原码)转换成数值\r\n\r\n"
              "注意: 这里数据的高低位是不进行对调的!\r\n\r\n"
              "第一步: 数据从十六进制转换成十进制,就是  84D2 ---> 34002\r\n\r\n"
              "第二步: 如果该数值大于 32768,则减去 32768 并乘以 -1 \r\n\r\n"
              "        即: 修正后数值 = ( 34002 - 32768 ) * (-1) --->  -1234\r\n\r\n");
}

// Unlike with swapped bytes: the words of each say so.
TEST(ExplainSignMagnitude, CorrectionBeginsBehind32768) {
    EXPECT_TRUE(
        InOrder(u"8000").ends_with("8000 ---> 32768\r\n\r\n"
                                   "第二步: 如果该数值大于 32768,则减去 32768 并乘以 -1 \r\n\r\n"));
    EXPECT_TRUE(InOrder(u"8001").ends_with("( 32769 - 32768 ) * (-1) --->  -1\r\n\r\n"));
}

// --- What both tell by the length of the code ---

class BothOrders : public ::testing::TestWithParam<Explainer> {};

TEST_P(BothOrders, TwoCharactersAreASingleByteOnOneLine) {
    EXPECT_EQ(Explained(GetParam(), u"C8"), "单字节数据直接转换,即从十六进制转换成十进制,就是  C8 ---> 200");
}

TEST_P(BothOrders, EightCharactersAreACustomFloat) {
    const std::string text = Explained(GetParam(), u"04A00000");
    EXPECT_TRUE(
        text.starts_with("自定义浮点数转换成具体数值的计算过程\r\n\r\n第一步: 将数据 04A00000 分解成"));
    EXPECT_NE(text.find("浮点数 04A00000 转换后的数值是  10\r\n"), std::string::npos);
}

TEST_P(BothOrders, SixteenCharactersAreAnAccumulatedValue) {
    const std::string text = Explained(GetParam(), u"04A0000007C90000");
    EXPECT_TRUE(text.starts_with("所谓8个字节的累积值(合成数据)的计算过程\r\n\r\n"));
    EXPECT_TRUE(text.ends_with("S累积值  =  10  *  100  +  100.5"));
}

TEST_P(BothOrders, EveryOtherLengthIsRefused) {
    for (const Text code : {u"", u"8", u"123", u"12345", u"123456", u"1234567", u"123456789",
                            u"123456789012345", u"12345678901234567"}) {
        EXPECT_EQ(Explained(GetParam(), code), "数据非法,无法演示转换过程") << ToUtf8(code);
    }
}

INSTANTIATE_TEST_SUITE_P(ExplainSignMagnitude, BothOrders,
                         ::testing::Values(ExplainSignMagnitudeSwapped, ExplainSignMagnitude));

// --- 补码 ---

TEST(ExplainTwosComplement, CodeBelow8000IsItsValue) {
    EXPECT_EQ(Complement(u"04D2"),
              "双字节(补码)转换成数值\r\n\r\n"
              "第一步: 判断是否大于 8000 (这里是指16进制),如小于8000,则直接转换成10进制即可\r\n\r\n"
              "        转换成十进制, 即  04D2 --->  1234\r\n\r\n");
    EXPECT_TRUE(Complement(u"7FFF").ends_with("即  7FFF --->  32767\r\n\r\n"));
}

TEST(ExplainTwosComplement, CodeAbove8000IsTakenFrom10000) {
    EXPECT_EQ(Complement(u"FB2E"),
              "双字节(补码)转换成数值\r\n\r\n"
              "第一步: 判断是否大于 8000 (这里是指16进制),如小于8000,则直接转换成10进制即可\r\n\r\n"
              "第二步: 用10000 减去该数值,然后转换成十进制,即  \r\n\r\n"
              "        10000 - FB2E ---> 4D2\r\n\r\n"
              "        然后转换成十进制,再乘以 -1 , 即  4D2 --->  -1234\r\n\r\n");
    EXPECT_TRUE(Complement(u"FFFF").ends_with("即  1 --->  -1\r\n\r\n"));
    EXPECT_TRUE(Complement(u"8001").ends_with("即  7FFF --->  -32767\r\n\r\n"));
}

TEST(ExplainTwosComplement, Code8000HasTwoMinusSigns) {
    EXPECT_TRUE(
        Complement(u"8000").ends_with("        10000 - 8000 ---> 8000\r\n\r\n"
                                      "        然后转换成十进制,再乘以 -1 , 即  8000 --->  --32768\r\n\r\n"));
}

TEST(ExplainTwosComplement, TwoCharactersAreASingleByteOnOneLine) {
    EXPECT_EQ(Complement(u"FF"), "单字节数据直接转换,即从十六进制转换成十进制,就是  FF ---> 255");
}

TEST(ExplainTwosComplement, EveryOtherLengthIsRefused) {
    for (const Text code : {u"", u"8", u"123", u"12345", u"04A00000", u"04A0000007C90000"}) {
        EXPECT_EQ(Complement(code), "数据非法,无法演示转换过程") << ToUtf8(code);
    }
}

}  // namespace
}  // namespace commtest
