#include "tools/tool_modes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/tool_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::PressedTool;
using testing::ShownBox;
using ::testing::StartsWith;

constexpr int kToFloat = 0;
constexpr int kOfFloat = 1;
constexpr int kToCode = 2;
constexpr int kOfCode = 3;
constexpr int kToIeee = 4;
constexpr int kOfIeee = 5;
constexpr int kAccumulated = 6;

constexpr int kNative = 11;
constexpr int kModbusRtu = 31;

const std::string kNoData = "输入非法数据,本栏必须输入10进制数据！";
const std::string kNoNumber = "输入非法数据,本栏必须输入合法十进制数字！";
const std::string kNoCode = "输入非法数据,本栏必须输入16进制数据,且长度不能超过8位！";
const std::string kTooLong = "输入非法数据,本栏必须输入16进制数据,且长度不能超过16位！";

// --- The table of the modes ---

TEST(ToolModes, EachHasItsTip) {
    const std::vector<std::string> tips = {"TQ流量表中专用格式",
                                           "请输入Ascii格式的8个字符",
                                           "将数值按不同协议转换成通讯中的代码",
                                           "将代码按不同协议转换成数值",
                                           "标准浮点数转换",
                                           "标准浮点数转换",
                                           "在流量表中分高低位累积值的计算",
                                           "计算校验码"};
    for (std::size_t mode = 0; mode < 8; ++mode) EXPECT_EQ(ToUtf8(kToolModes.at(mode).tip), tips[mode]);
}

struct FilledCase {
    int mode;
    std::string input;
    std::string filled;
};

TEST(ToolModes, InputIsFilledUpWithZerosOnTheLeftToTheLengthOfTheCode) {
    for (const FilledCase& one : {FilledCase{kToFloat, "1", "1"},
                                  {kOfFloat, "FF", "000000FF"},
                                  {kOfFloat, "02DA0000", "02DA0000"},
                                  {kToCode, "1", "1"},
                                  {kOfCode, "F", "000F"},
                                  {kOfCode, "12345", "12345"},
                                  {kToIeee, "1", "1"},
                                  {kOfIeee, "1", "00000001"},
                                  {kAccumulated, "7C90000", "0000000007C90000"},
                                  {kCheckWordMode, "1", "1"}}) {
        PressedTool bench(one.mode, kModbusRtu, one.input);
        EXPECT_EQ(bench.Input(), one.filled) << one.mode;
        EXPECT_THAT(bench.dialogs.Shown, IsEmpty()) << one.mode;
    }
}

// --- Refusals ---

struct RefusedCase {
    int mode;
    std::string input;
    std::string shownInput;
    std::string message;
};

const std::vector<RefusedCase> kRefused = {
    {kToFloat, "12x", "12x", kNoData},
    {kToFloat, "FF", "FF", kNoData},
    {kToFloat, " ", " ", kNoData},
    {kOfFloat, "GG", "000000GG", kNoCode},
    {kOfFloat, "123456789", "123456789", kNoCode},
    {kOfFloat, "-1", "000000-1", kNoCode},
    {kToCode, "1.2.3", "1.2.3", kNoNumber},
    {kToCode, "-", "-", kNoNumber},
    {kOfCode, "GG", "00GG", kNoCode},
    {kOfCode, "1.5", "01.5", kNoCode},
    {kOfCode, "012345678", "012345678", kNoCode},
    {kToIeee, "x30", "x30", kNoData},
    {kOfIeee, "0x", "0000000x", kNoCode},
    {kOfIeee, "412000000", "412000000", kNoCode},
    {kAccumulated, "00000000000000000", "00000000000000000", kTooLong},
};

TEST(ToolRefusals, NameWhatTheModeTakesInAMessage) {
    for (const RefusedCase& one : kRefused) {
        PressedTool bench(one.mode, kModbusRtu, one.input);
        EXPECT_THAT(bench.dialogs.Texts(), ElementsAre(one.message)) << one.input;
        EXPECT_EQ(bench.dialogs.Shown.at(0).kind, ShownBox::Kind::Message);
        EXPECT_EQ(bench.dialogs.Shown.at(0).detail, Text());
    }
}

TEST(ToolRefusals, LeaveTheInputAsItWasFilledUp) {
    for (const RefusedCase& one : kRefused) {
        EXPECT_EQ(PressedTool(one.mode, kModbusRtu, one.input).Input(), one.shownInput);
    }
}

TEST(ToolRefusals, LeaveTheExplanation) {
    for (const RefusedCase& one : kRefused) {
        EXPECT_EQ(PressedTool(one.mode, kModbusRtu, one.input).Explanation(), "was") << one.mode;
    }
}

TEST(ToolRefusals, LeaveTheResultButForTheModeThatEmptiesIt) {
    for (const RefusedCase& one : kRefused) {
        const std::string left = one.mode == kToCode ? "" : "was";
        EXPECT_EQ(PressedTool(one.mode, kModbusRtu, one.input).Result(), left) << one.mode;
    }
}

TEST(ToolRefusals, NumberBeyondTheRangeOfADoubleIsNone) {
    for (const int mode : {kToFloat, kToCode, kToIeee}) {
        EXPECT_EQ(PressedTool(mode, kNative, "1E400").dialogs.Shown.size(), 1U) << mode;
    }
}

TEST(ToolRefusals, NumberMayHaveSignPointAndExponent) {
    for (const int mode : {kToFloat, kToCode, kToIeee}) {
        for (const char* number : {"-1", "+2", ".5", "7.", "1e3", "1E-3"}) {
            EXPECT_THAT(PressedTool(mode, kNative, number).dialogs.Shown, IsEmpty()) << number;
        }
    }
}

// --- Custom floats ---

struct Conversion {
    std::string input;
    std::string result;
};

TEST(ValueToCustomFloat, GivesItsCode) {
    for (const Conversion& one : {Conversion{"10", "04A00000"},
                                  {"100.5", "07C90000"},
                                  {"0.75", "00C00000"},
                                  {"0.3", "41999999"},
                                  {"-0.3", "C1999999"},
                                  {"0.25", "421000000"},
                                  {"-1234.5678", "8B9A522B"}}) {
        EXPECT_EQ(PressedTool(kToFloat, kNative, one.input).Result(), one.result) << one.input;
    }
}

TEST(ValueToCustomFloat, ZeroHasTheNineCharactersOfASmallValue) {
    EXPECT_EQ(PressedTool(kToFloat, kNative, "0").Result(), "100000000");
}

TEST(ValueToCustomFloat, ExplainsTheStepsWithTheValueAsTyped) {
    EXPECT_EQ(PressedTool(kToFloat, kNative, "0.750").Explanation(),
              "具体数值转换成自定义浮点数的计算过程\r\n\r\n"
              "第一步: 判断数据 0.750 是正数还是负数,由此来产生 数符,这里数符 SF = 0\r\n\r\n"
              "第二步: 判断数据 .75 是否小于0.5(即 2的 -1次方),由此来产生 阶符,这里阶符 JF = 0\r\n\r\n"
              "        以上数值经过一系列的计算后数据是 0.75 保留在 A0中转入下一步计算;\r\n\r\n"
              "        这里请注意:对于0.5到1之间的数值,阶码是0,这里就不去计算了.\r\n\r\n"
              "第四步: 对A0进行三次乘以 256,每乘一次,就将数据的整数部分取出赋值到 A2 A3 A4 中去;\r\n\r\n"
              "        这时 A2 A3 A4 的值分别是   C0  00  00\r\n\r\n"
              "第五步: 这时,我们已经求出了数值 0.750  转换成 浮点数 就是 : 00C00000\r\n\r\n");
}

TEST(ValueToCustomFloat, DoesNotGoByTheProtocol) {
    for (const int code : {0, 2, 11, 22, 31}) {
        EXPECT_EQ(PressedTool(kToFloat, code, "10").Result(), "04A00000");
    }
}

TEST(ValueToCustomFloat, OverflowIsPassedOverAndLeavesThePartsWritten) {
    PressedTool bench(kToFloat, kNative, "1E39");
    EXPECT_EQ(bench.Result(), "1E39");
    EXPECT_THAT(bench.Explanation(),
                StartsWith("具体数值转换成自定义浮点数的计算过程\r\n\r\n第一步: 判断数据 1E39 "));
    EXPECT_THAT(bench.Explanation(), Not(HasSubstr("第五步")));
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST(CustomFloatToValue, GivesAllFifteenDigits) {
    for (const Conversion& one : {Conversion{"04A00000", "10"},
                                  {"02DA0000", "3.40625"},
                                  {"41999999", "0.299999982118607"},
                                  {"c1b4e200", "-0.353286743164062"},
                                  {"4048F5C3", "0.285000026226044"}}) {
        EXPECT_EQ(PressedTool(kOfFloat, kNative, one.input).Result(), one.result) << one.input;
    }
}

// 255 / 16777216.
TEST(CustomFloatToValue, ShortCodeIsReadAsItWasFilledUp) {
    PressedTool bench(kOfFloat, kNative, "FF");
    EXPECT_EQ(bench.Result(), "1.51991844177246E-05");
    EXPECT_THAT(bench.Explanation(), HasSubstr("第一步: 将数据 000000FF 分解成 四个16进制数据 A1 = 00、 "));
}

TEST(CustomFloatToValue, ExplainsTheSteps) {
    const std::string explanation = PressedTool(kOfFloat, kNative, "04A00000").Explanation();
    EXPECT_THAT(explanation, StartsWith("自定义浮点数转换成具体数值的计算过程\r\n\r\n"));
    EXPECT_THAT(explanation, HasSubstr("        也就是说 浮点数 04A00000 转换后的数值是  10\r\n\r\n"));
}

// --- Codes of a protocol ---

struct ProtocolConversion {
    int code;
    std::string input;
    std::string result;
};

TEST(ValueToCode, GoesByTheProtocol) {
    for (const ProtocolConversion& one : {ProtocolConversion{11, "1234", "D204"},
                                          {12, "1234", "D204"},
                                          {13, "1234", "D204"},
                                          {21, "1234", "04D2"},
                                          {31, "1234", "04D2"},
                                          {32, "1234", "04D2"},
                                          {33, "1234", "04D2"},
                                          {22, "1234", "0000001234"}}) {
        EXPECT_EQ(PressedTool(kToCode, one.code, one.input).Result(), one.result) << one.code;
    }
}

TEST(ValueToCode, RoundsAndSignsAsTheProtocolDoes) {
    for (const ProtocolConversion& one : {ProtocolConversion{11, "-1234", "D284"},
                                          {11, "2.5", "0200"},
                                          {11, "-2.5", "0280"},
                                          {21, "-1234", "FB2E"},
                                          {31, "1.9", "0001"},
                                          {31, "-1.5", "FFFE"},
                                          {22, "12.34", "0200001234"},
                                          {22, "-5", "0800000005"},
                                          {22, "0.75", "0000000000"}}) {
        EXPECT_EQ(PressedTool(kToCode, one.code, one.input).Result(), one.result) << one.input;
    }
}

TEST(ValueToCode, ExplainsTheCodeOfANativeProtocol) {
    for (const int code : {11, 12, 13}) {
        EXPECT_EQ(PressedTool(kToCode, code, "1234").Explanation(),
                  "双字节(原码)转换成数值\r\n\r\n"
                  "第一步: 高低位对调,即   D204 ---> 04D2\r\n\r\n"
                  "第二步: 数据从十六进制转换成十进制,就是  04D2 ---> 1234\r\n\r\n"
                  "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \r\n\r\n");
    }
}

TEST(ValueToCode, EmptiesTheExplanationWhereNoRoutineWritesOne) {
    for (const int code : {21, 22, 31, 32, 33, 0, 2, 3, 23, 34, 41}) {
        EXPECT_EQ(PressedTool(kToCode, code, "1234").Explanation(), "") << code;
    }
}

TEST(ValueToCode, UnknownProtocolShowsTheValueAsItIs) {
    for (const int code : {0, 2, 3, 14, 23, 34, 35, 41, 42, 51, -1}) {
        EXPECT_EQ(PressedTool(kToCode, code, "0.750").Result(), "0.750") << code;
    }
}

// The steps behind a failing one run: what stands by then is explained.
TEST(ValueToCode, OverflowIsPassedOver) {
    PressedTool rtu(kToCode, kModbusRtu, "3000000000");
    EXPECT_EQ(rtu.Result(), "3000000000");
    EXPECT_EQ(rtu.Explanation(), "");
    PressedTool native(kToCode, kNative, "3000000000");
    EXPECT_EQ(native.Result(), "3000000000");
    EXPECT_EQ(native.Explanation(), "数据非法,无法演示转换过程");
    EXPECT_THAT(native.dialogs.Shown, IsEmpty());
}

TEST(ValueToCode, OverflowOfANegativeValueLeavesItsMagnitudeWithTheSign) {
    EXPECT_EQ(PressedTool(kToCode, kNative, "-3000000000").Result(), "3000032768");
}

TEST(CodeToValue, DoesTheSameAsTheOtherWay) {
    for (const ProtocolConversion& one : {ProtocolConversion{11, "1234", "D204"},
                                          {12, "1234", "D204"},
                                          {13, "1234", "D204"},
                                          {21, "1234", "04D2"},
                                          {31, "1234", "04D2"},
                                          {32, "1234", "04D2"},
                                          {33, "1234", "04D2"},
                                          {22, "1234", "0000001234"},
                                          {41, "1234", "1234"}}) {
        EXPECT_EQ(PressedTool(kOfCode, one.code, one.input).Result(), one.result) << one.code;
    }
}

TEST(CodeToValue, ReadsTheCodeThatWasFilledUpAsADecimalNumber) {
    EXPECT_EQ(PressedTool(kOfCode, kModbusRtu, "12").Result(), "000C");
    EXPECT_EQ(PressedTool(kOfCode, 22, "1").Result(), "0000000001");
    EXPECT_EQ(PressedTool(kOfCode, 2, "7").Result(), "0007");
}

TEST(CodeToValue, CodeWithLettersStaysAsItIs) {
    for (const int code : {11, 12, 13, 21, 22, 31, 32, 33}) {
        PressedTool bench(kOfCode, code, "D204");
        EXPECT_EQ(bench.Result(), "D204") << code;
        EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    }
    EXPECT_EQ(PressedTool(kOfCode, 33, "FF").Result(), "00FF");
    EXPECT_EQ(PressedTool(kOfCode, 33, "ff").Result(), "00ff");
}

TEST(CodeToValue, CodeWithLettersIsExplainedAllTheSame) {
    EXPECT_EQ(PressedTool(kOfCode, kNative, "D284").Explanation(),
              "双字节(原码)转换成数值\r\n\r\n"
              "第一步: 高低位对调,即   D284 ---> 84D2\r\n\r\n"
              "第二步: 数据从十六进制转换成十进制,就是  84D2 ---> 34002\r\n\r\n"
              "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \r\n\r\n"
              "        即: 修正后数值 = ( 34002 - 32768 ) * (-1) --->  -1234\r\n\r\n");
}

// 1E05 is 100000, in hexadecimal 186A0.
TEST(CodeToValue, CodeThatLooksLikeAnExponentIsANumber) {
    EXPECT_EQ(PressedTool(kOfCode, kModbusRtu, "1E05").Result(), "86A0");
}

// --- IEEE 754 ---

TEST(ValueToIeee, GivesTheSingle) {
    for (const Conversion& one : {Conversion{"10", "41200000"},
                                  {"3.14", "4048F5C3"},
                                  {"-0.5", "BF000000"},
                                  {"0.1", "3DCCCCCD"},
                                  {"0", "00000000"}}) {
        EXPECT_EQ(PressedTool(kToIeee, kNative, one.input).Result(), one.result) << one.input;
    }
}

TEST(ValueToIeee, ExplainsTheCustomFloatOfTheValueAsTyped) {
    const std::string explanation = PressedTool(kToIeee, kNative, "10.0").Explanation();
    EXPECT_THAT(explanation,
                StartsWith("IEEE754浮点数转换成具体数值的计算过程\r\n\r\n第一步: 判断数据 10.0 "));
    EXPECT_THAT(explanation, EndsWith("求出了数值 10.0  转换成 浮点数 就是 : 04A00000\r\n\r\n"));
}

TEST(ValueToIeee, OverflowLeavesTheValueAndThePartsWritten) {
    PressedTool bench(kToIeee, kNative, "1E39");
    EXPECT_EQ(bench.Result(), "1E39");
    EXPECT_THAT(bench.Explanation(), StartsWith("IEEE754浮点数转换成具体数值的计算过程\r\n\r\n"));
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST(IeeeToValue, GivesTheShortenedValue) {
    for (const Conversion& one : {Conversion{"41200000", "10"},
                                  {"4048f5c3", "3.14"},
                                  {"BF000000", "-0.5"},
                                  {"C59CAE80", "-5013.812"},
                                  {"0", "0"}}) {
        EXPECT_EQ(PressedTool(kOfIeee, kNative, one.input).Result(), one.result) << one.input;
    }
}

TEST(IeeeToValue, ExplainsTheBitsOfTheCodeThatWasFilledUp) {
    EXPECT_EQ(PressedTool(kOfIeee, kNative, "3F").Explanation(),
              "IEEE754浮点数转换成具体数值的计算过程--书写中\r\n\r\n"
              "第一步: 把数值 0000003F 转换成二进制数据:   00000000000000000000000000111111\r\n"
              "1位符号位(S)    8位指数(e)    23位尾数(M,共32位)  具体数值如下:\r\n"
              "          符号位   0\r\n"
              "          指数     00000000\r\n"
              "          尾数     00000000000000000111111\r\n");
}

// --- Accumulated values ---

TEST(AccumulatedMode, AddsAHundredfoldOfTheFirstHalfToTheSecond) {
    PressedTool bench(kAccumulated, kNative, "04A0000007C90000");
    EXPECT_EQ(bench.Result(), "1100.5");
    EXPECT_EQ(bench.Explanation(),
              "所谓8个字节的累积值(合成数据)的计算过程\r\n\r\n"
              "第一步: 取前 8 位 字符  04A00000  ,转换成数值  10\r\n\r\n"
              "第二步: 取后 8 位 字符  07C90000  ,转换成数值  100.5\r\n\r\n"
              "第三步: 将第一个数值 10 乘以 100 加上 第二个数值 100.5 之和就是累积值\r\n\r\n"
              "        即:    S累积值  =  10  *  100  +  100.5");
}

TEST(AccumulatedMode, ShortCodeIsTheSecondHalf) {
    EXPECT_EQ(PressedTool(kAccumulated, kNative, "7C90000").Result(), "100.5");
}

TEST(AccumulatedMode, AsksForNothingButTheLength) {
    PressedTool bench(kAccumulated, kNative, "WXYZ");
    EXPECT_EQ(bench.Input(), "000000000000WXYZ");
    EXPECT_EQ(bench.Result(), "0");
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

}  // namespace
}  // namespace commtest
