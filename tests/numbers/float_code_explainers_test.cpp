#include "numbers/float_code_explainers.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

struct Explained {
    std::string value;
    std::string text;

    bool Has(const std::string& words) const { return text.find(words) != std::string::npos; }
};

Explained ExplainedFloat(Text code) {
    Text explanation = u"what stood there before";
    ExplainFloatCode(code, explanation);
    return {ToUtf8(code), ToUtf8(explanation)};
}

std::string ExplainedSum(const Text& code) {
    Text explanation = u"what stood there before";
    ExplainAccumulatedValue(code, explanation);
    return ToUtf8(explanation);
}

TEST(ExplainFloatCode, TellsEveryStep) {
    EXPECT_EQ(
        ExplainedFloat(u"8B9A522B").text,
        "自定义浮点数转换成具体数值的计算过程\r\n\r\n"
        "第一步: 将数据 8B9A522B 分解成 四个16进制数据 A1 = 8B、 A2 = 9A、 A3 = 52、 A4 = 2B \r\n\r\n"
        "第二步: 将A2 A3 A4分别除以 256 、256 * 256、256 * 256 * 256 后相加 得到 A0 = 0.60281628370285"
        "\r\n\r\n"
        "第三步: 将A1转换成2进制数后,将最高位N7和次高位N6 分别用 SF(数符) 和 JF(阶符) 表示 即:SF = 1  JF = 0"
        "\r\n\r\n"
        "        这里 SF表示数据的正负,JF表示数据阶数的正负(均为 0 表示正数, 1 表示负数),"
        "为了运算方便,将0用1表示,1用-1表示;\r\n\r\n"
        "        于是转换后的数值就是 SF = -1  JF = 1\r\n\r\n"
        "第四步: 将A1(2进制数)最高位N7和次高位N6 置零 -> 取后6位数,返回到A1,即 阶码 A1 = 11\r\n\r\n"
        "第五步: 按照公式 : Value = SF * A0 * (2^(JF * A1)) 得出 数据: -1234.56774902344\r\n\r\n"
        "        也就是说 浮点数 8B9A522B 转换后的数值是  -1234.56774902344\r\n\r\n"
        "        这里数值最多取小数点后4位。 (如数值结尾有 E - ?? 字样,表示 要乘以 10的负??次方<科学计数法>"
        " -- 基本上就是 0 了)");
}

TEST(ExplainFloatCode, ReplacesTheCodeByItsValue) {
    EXPECT_EQ(ExplainedFloat(u"04A00000").value, "10");
    EXPECT_EQ(ExplainedFloat(u"07C90000").value, "100.5");
    EXPECT_EQ(ExplainedFloat(u"01800000").value, "1");
    EXPECT_EQ(ExplainedFloat(u"00000000").value, "0");
}

TEST(ExplainFloatCode, ValueKeepsAllItsDigitsAndGetsTheZeroBeforeThePoint) {
    EXPECT_EQ(ExplainedFloat(u"41999999").value, "0.299999982118607");
    EXPECT_EQ(ExplainedFloat(u"C1999999").value, "-0.299999982118607");
    EXPECT_TRUE(ExplainedFloat(u"41999999").Has("得出 数据: 0.299999982118607\r\n"));
    EXPECT_TRUE(ExplainedFloat(u"C1999999").Has("转换后的数值是  -0.299999982118607\r\n"));
}

struct Signs {
    const char16_t* code;
    const char* bits;
    const char* factors;
    const char* exponent;
};

TEST(ExplainFloatCode, FirstByteHoldsTheSignsAndTheExponent) {
    const Signs cases[] = {
        {u"3F800000", "即:SF = 0  JF = 0\r\n", "就是 SF = 1  JF = 1\r\n", "阶码 A1 = 63\r\n"},
        {u"42800000", "即:SF = 0  JF = 1\r\n", "就是 SF = 1  JF = -1\r\n", "阶码 A1 = 2\r\n"},
        {u"80800000", "即:SF = 1  JF = 0\r\n", "就是 SF = -1  JF = 1\r\n", "阶码 A1 = 0\r\n"},
        {u"FF800000", "即:SF = 1  JF = 1\r\n", "就是 SF = -1  JF = -1\r\n", "阶码 A1 = 63\r\n"},
    };
    for (const Signs& signs : cases) {
        const Explained explained = ExplainedFloat(signs.code);
        EXPECT_TRUE(explained.Has(signs.bits)) << ToUtf8(signs.code);
        EXPECT_TRUE(explained.Has(signs.factors)) << ToUtf8(signs.code);
        EXPECT_TRUE(explained.Has(signs.exponent)) << ToUtf8(signs.code);
    }
}

// The zero in front of A0 belongs to the words, not to the number.
TEST(ExplainFloatCode, MantissaStandsBehindAZeroWhateverItsForm) {
    EXPECT_TRUE(ExplainedFloat(u"00000000").Has("得到 A0 = 00\r\n"));
    EXPECT_TRUE(ExplainedFloat(u"00800000").Has("得到 A0 = 0.5\r\n"));
    EXPECT_TRUE(ExplainedFloat(u"00000001").Has("得到 A0 = 05.96046447753906E-08\r\n"));
}

TEST(ExplainFloatCode, MissingPairIsEmptyAndReadsAsZero) {
    const Explained explained = ExplainedFloat(u"04A0");
    EXPECT_EQ(explained.value, "10");
    EXPECT_TRUE(explained.Has("A1 = 04、 A2 = A0、 A3 = 、 A4 =  \r\n"));
}

TEST(ExplainAccumulatedValue, TellsEveryStep) {
    EXPECT_EQ(ExplainedSum(u"04A0000007C90000"),
              "所谓8个字节的累积值(合成数据)的计算过程\r\n\r\n"
              "第一步: 取前 8 位 字符  04A00000  ,转换成数值  10\r\n\r\n"
              "第二步: 取后 8 位 字符  07C90000  ,转换成数值  100.5\r\n\r\n"
              "第三步: 将第一个数值 10 乘以 100 加上 第二个数值 100.5 之和就是累积值\r\n\r\n"
              "        即:    S累积值  =  10  *  100  +  100.5");
}

TEST(ExplainAccumulatedValue, TheTwoValuesAreShortenedAsReadingsAre) {
    EXPECT_TRUE(ExplainedSum(u"41999999C1999999").ends_with("=  0.29999998  *  100  +  -0.2999999"));
}

}  // namespace
}  // namespace commtest
