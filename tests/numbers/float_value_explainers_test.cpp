#include "numbers/float_value_explainers.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

struct Explained {
    std::string code;
    std::string text;

    bool Has(const std::string& words) const { return text.find(words) != std::string::npos; }
};

Explained ExplainedValue(Text value) {
    Text explanation = u"what stood there before";
    ExplainValueToFloatCode(value, explanation);
    return {ToUtf8(value), ToUtf8(explanation)};
}

TEST(ExplainValueToFloatCode, ValueOfOneAndMoreIsHalved) {
    EXPECT_EQ(ExplainedValue(u"100.5").text,
              "具体数值转换成自定义浮点数的计算过程\r\n\r\n"
              "第一步: 判断数据 100.5 是正数还是负数,由此来产生 数符,这里数符 SF = 0\r\n\r\n"
              "第二步: 判断数据 100.5 是否小于0.5(即 2的 -1次方),由此来产生 阶符,这里阶符 JF = 0\r\n\r\n"
              "第三步: 对大于 1 的数据 100.5 进行除2运算,一直到余数小于1为止,由此来产生 阶码,"
              "与数符、阶符合成第一个数据 A1 = 7\r\n\r\n"
              "        以上数值经过一系列的计算后数据是 0.78515625 保留在 A0中转入下一步计算;\r\n\r\n"
              "        这里请注意:对于0.5到1之间的数值,阶码是0,这里就不去计算了.\r\n\r\n"
              "第四步: 对A0进行三次乘以 256,每乘一次,就将数据的整数部分取出赋值到 A2 A3 A4 中去;\r\n\r\n"
              "        这时 A2 A3 A4 的值分别是   C9  00  00\r\n\r\n"
              "第五步: 这时,我们已经求出了数值 100.5  转换成 浮点数 就是 : 07C90000\r\n\r\n");
}

TEST(ExplainValueToFloatCode, MagnitudeBelowAHalfIsDoubled) {
    EXPECT_EQ(ExplainedValue(u"-0.3").text,
              "具体数值转换成自定义浮点数的计算过程\r\n\r\n"
              "第一步: 判断数据 -0.3 是正数还是负数,由此来产生 数符,这里数符 SF = 1\r\n\r\n"
              "第二步: 判断数据 .3 是否小于0.5(即 2的 -1次方),由此来产生 阶符,这里阶符 JF = 1\r\n\r\n"
              "第三步: 对小于 0.5 的数据 .3 进行乘2运算,一直到积数大于1为止,由此来产生 阶码,"
              "与数符、阶符合成第一个数据 A1 = C1\r\n\r\n"
              "        以上数值经过一系列的计算后数据是 0.6 保留在 A0中转入下一步计算;\r\n\r\n"
              "        这里请注意:对于0.5到1之间的数值,阶码是0,这里就不去计算了.\r\n\r\n"
              "第四步: 对A0进行三次乘以 256,每乘一次,就将数据的整数部分取出赋值到 A2 A3 A4 中去;\r\n\r\n"
              "        这时 A2 A3 A4 的值分别是   99  99  99\r\n\r\n"
              "第五步: 这时,我们已经求出了数值 -0.3  转换成 浮点数 就是 : C1999999\r\n\r\n");
}

TEST(ExplainValueToFloatCode, BetweenAHalfAndOneThereIsNoThirdStep) {
    for (const Text value : {u"0.5", u"0.75", u"-0.999"}) {
        const Explained explained = ExplainedValue(value);
        EXPECT_FALSE(explained.Has("第三步")) << ToUtf8(value);
        EXPECT_TRUE(explained.Has("阶符 JF = 0\r\n\r\n        以上数值")) << ToUtf8(value);
        EXPECT_TRUE(explained.Has("这里请注意")) << ToUtf8(value);
    }
    EXPECT_TRUE(ExplainedValue(u"0.75").Has("数据是 0.75 保留"));
    EXPECT_TRUE(ExplainedValue(u"1").Has("第三步: 对大于 1 的数据 1 "));
    EXPECT_TRUE(ExplainedValue(u"0.4999").Has("第三步: 对小于 0.5 的数据 .4999 "));
}

TEST(ExplainValueToFloatCode, ReplacesTheValueByItsCode) {
    EXPECT_EQ(ExplainedValue(u"10").code, "04A00000");
    EXPECT_EQ(ExplainedValue(u"-1234.5678").code, "8B9A522B");
    EXPECT_EQ(ExplainedValue(u"0.1").code, "43CCCCCC");
    EXPECT_EQ(ExplainedValue(u"-1").code, "81800000");
}

TEST(ExplainValueToFloatCode, PowerOfTwoBelowAHalfHasAByteOfThreeDigits) {
    const Explained explained = ExplainedValue(u"0.25");
    EXPECT_EQ(explained.code, "421000000");
    EXPECT_TRUE(explained.Has("第一个数据 A1 = 42\r\n"));
    EXPECT_TRUE(explained.Has("数据是 01 保留"));
    EXPECT_TRUE(explained.Has("的值分别是   100  00  00\r\n"));
}

// There is no rule for zero here, unlike in the codec.
TEST(ExplainValueToFloatCode, ZeroCountsAsNegativeAndTakesAllExponents) {
    const Explained explained = ExplainedValue(u"0");
    EXPECT_EQ(explained.code, "100000000");
    EXPECT_TRUE(explained.Has("数符 SF = 1\r\n"));
    EXPECT_TRUE(explained.Has("阶符 JF = 1\r\n"));
    EXPECT_TRUE(explained.Has("对小于 0.5 的数据 0 "));
    EXPECT_TRUE(explained.Has("第一个数据 A1 = 100\r\n"));
    EXPECT_TRUE(explained.Has("数据是 00 保留"));
    EXPECT_TRUE(explained.Has("的值分别是   00  00  00\r\n"));
}

TEST(ExplainValueToFloatCode, ValueIsShownAsTypedAndItsMagnitudeAsANumber) {
    const Explained explained = ExplainedValue(u"-012.50");
    EXPECT_TRUE(explained.Has("第一步: 判断数据 -012.50 是正数"));
    EXPECT_TRUE(explained.Has("第二步: 判断数据 12.5 是否"));
    EXPECT_TRUE(explained.Has("第三步: 对大于 1 的数据 12.5 进行"));
    EXPECT_TRUE(explained.Has("求出了数值 -012.50  转换成"));
}

TEST(ExplainValueToFloatCode, FirstByteIsFilledInTheCodeOnly) {
    const Explained explained = ExplainedValue(u"743.98");
    EXPECT_TRUE(explained.Has("第一个数据 A1 = A\r\n"));
    EXPECT_EQ(explained.code, "0AB9FEB8");
}

TEST(ExplainValueToFloatCode, TextThatIsNoNumberRaisesError13AndWritesNoStep) {
    Text value = u"五";
    Text explanation = u"what stood there before";
    EXPECT_EQ(ErrorOf([&] { ExplainValueToFloatCode(value, explanation); }), 13);
    EXPECT_EQ(ToUtf8(value), "五");
    EXPECT_EQ(ToUtf8(explanation), "");
}

TEST(ExplainValueToFloatCode, OverflowLeavesTheStepsBeforeIt) {
    Text value = u"1E+27";
    Text explanation;
    EXPECT_EQ(ErrorOf([&] { ExplainValueToFloatCode(value, explanation); }), 6);
    EXPECT_EQ(ToUtf8(value), "1E+27");
    EXPECT_TRUE(ToUtf8(explanation).starts_with("具体数值转换成自定义浮点数的计算过程\r\n\r\n"));
    EXPECT_TRUE(ToUtf8(explanation).ends_with("取出赋值到 A2 A3 A4 中去;\r\n\r\n"));
}

TEST(ExplainValueToIeee, HasItsOwnTitleOverTheStepsOfTheCustomFloat) {
    Text explanation = u"what stood there before";
    ExplainValueToIeee(u"0.6", explanation);
    EXPECT_EQ(ToUtf8(explanation),
              "IEEE754浮点数转换成具体数值的计算过程\r\n\r\n"
              "第一步: 判断数据 0.6 是正数还是负数,由此来产生 数符,这里数符 SF = 0\r\n\r\n"
              "第二步: 判断数据 .6 是否小于0.5(即 2的 -1次方),由此来产生 阶符,这里阶符 JF = 0\r\n\r\n"
              "        以上数值经过一系列的计算后数据是 0.6 保留在 A0中转入下一步计算;\r\n\r\n"
              "        这里请注意:对于0.5到1之间的数值,阶码是0,这里就不去计算了.\r\n\r\n"
              "第四步: 对A0进行三次乘以 256,每乘一次,就将数据的整数部分取出赋值到 A2 A3 A4 中去;\r\n\r\n"
              "        这时 A2 A3 A4 的值分别是   99  99  99\r\n\r\n"
              "第五步: 这时,我们已经求出了数值 0.6  转换成 浮点数 就是 : 00999999\r\n\r\n");
}

TEST(ExplainValueToIeee, RaisesTheErrorsOfItsTwin) {
    Text explanation;
    EXPECT_EQ(ErrorOf([&] { ExplainValueToIeee(u"", explanation); }), 13);
    EXPECT_EQ(ErrorOf([&] { ExplainValueToIeee(u"1E+27", explanation); }), 6);
}

}  // namespace
}  // namespace commtest
