#include "tools/tool_modes.h"

#include "numbers/float_code_explainers.h"
#include "numbers/float_value_explainers.h"
#include "numbers/ieee_code_explainer.h"
#include "numbers/lrc.h"
#include "numbers/register_codecs.h"
#include "numbers/two_byte_explainers.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "tools/tool_checks.h"

namespace commtest {

namespace {

namespace format = register_format;

// --- What a mode accepts ---

bool IsNumber(const Text& input) {
    return IsMet([&] {
        ToNumber(input);
        return true;
    });
}

bool IsCode(const Text& input) {
    constexpr int kLongest = 8;
    return Len(input) <= kLongest && input.find_first_not_of(u"0123456789ABCDEFabcdef") == Text::npos;
}

// Q197: of any characters.
bool IsShort(const Text& input) {
    constexpr int kLongest = 16;
    return Len(input) <= kLongest;
}

bool IsAnything(const Text&) { return true; }

// --- What a mode answers; a step that fails is passed over, what stands by then is the answer (Q196) ---

template <void (*explain)(Text& text, Text& explanation)>
ToolAnswer Rewritten(const Text& input, int) {
    Text text = input;
    Text explanation;
    PassOverError([&] { explain(text, explanation); });
    return {text, explanation, {}};
}

using Codec = void (*)(Text& text, int formatNumber);
using Explainer = void (*)(const Text& text, Text& explanation);

template <Codec convert, int formatNumber, Explainer explain>
ToolAnswer Converted(const Text& input, int) {
    Text text = input;
    Text explanation;
    PassOverErrors([&] { convert(text, formatNumber); }, [&] { explain(input, explanation); });
    return {text, explanation, {}};
}

// Q187: the mode that is named for the way back does the same, and reads a code as a decimal number.
ToolAnswer CodeByProtocol(const Text& input, int protocolCode) {
    Text text = input;
    Text explanation;
    switch (protocolCode) {
        case tool_protocol::kNative:
        case tool_protocol::kNativeSum:
        case tool_protocol::kNativeFill:
            PassOverErrors([&] { ValueToCommCode(text, format::kSignMagnitudeSwapped); },
                           [&] { ExplainSignMagnitudeSwapped(text, explanation); });
            break;
        case tool_protocol::kModbusAscii:
        case tool_protocol::kModbusRtu:
        case tool_protocol::kModbusRtuFixed:
        case tool_protocol::kModbusRtuFlow:
            PassOverError([&] { ValueToCommCode(text, format::kTwosComplement); });
            break;
        case tool_protocol::kModbusAsciiBcd:
            PassOverError([&] { ValueToCommCode(text, format::kBcd); });
            break;
        default: break;
    }
    return {text, explanation, {}};
}

// Q188: no step of this mode fills the bytes, so that the input is shown as if it were a check word.
Text CrcOfBytes(const Text& input) {
    Text text = input;
    PassOverError([&] { text = Crc16OfByteArray({}, 0); });
    return Left(text, 2) + u" " + Mid(text, 3);
}

ToolAnswer CheckWordByProtocol(const Text& input, int protocolCode) {
    Text text = input;
    switch (protocolCode) {
        case tool_protocol::kCrcOfBytes: return {CrcOfBytes(input), {}, {}};
        case tool_protocol::kCrcOfHexText: {
            const auto check = Crc16OfHexText(input);
            return {check.value_or(Text()), {}, check ? TextView() : kNoHexText};
        }
        case tool_protocol::kNative: AppendXorCheck(text); return {text, {}, {}};
        case tool_protocol::kModbusAscii:
            PassOverError([&] { text = LrcOfPairs(input); });
            return {text, {}, {}};
        default: return {};  // Q191: the result stays
    }
}

constexpr TextView kNoDecimalData = u"输入非法数据,本栏必须输入10进制数据！";
constexpr TextView kNoDecimalNumber = u"输入非法数据,本栏必须输入合法十进制数字！";
constexpr TextView kNoCode = u"输入非法数据,本栏必须输入16进制数据,且长度不能超过8位！";
constexpr TextView kTooLong = u"输入非法数据,本栏必须输入16进制数据,且长度不能超过16位！";

constexpr auto kToIeee = Converted<ValueToCommCode, format::kIeeeSingle, ExplainValueToIeee>;
constexpr auto kOfIeee = Converted<CommCodeToValue, format::kIeeeSingle, ExplainIeeeCode>;
constexpr auto kOfAccumulated = Converted<CommCodeToValue, format::kAccumulated, ExplainAccumulatedValue>;

}  // namespace

// clang-format off
const std::array<ToolMode, 8> kToolModes = {{
    {u"数值->自定义浮点数", u"TQ流量表中专用格式", 0, false, IsNumber, kNoDecimalData,
     Rewritten<ExplainValueToFloatCode>},
    {u"自定义浮点数->数值", u"请输入Ascii格式的8个字符", 8, false, IsCode, kNoCode,
     Rewritten<ExplainFloatCode>},
    {u"数值->通讯代码", u"将数值按不同协议转换成通讯中的代码", 0, true, IsNumber, kNoDecimalNumber,
     CodeByProtocol},
    {u"通讯代码->数值", u"将代码按不同协议转换成数值", 4, false, IsCode, kNoCode,
     CodeByProtocol},
    {u"数值->IEEE-754浮点数", u"标准浮点数转换", 0, false, IsNumber, kNoDecimalData,
     kToIeee},
    {u"IEEE-754浮点数->数值", u"标准浮点数转换", 8, false, IsCode, kNoCode,
     kOfIeee},
    {u"流量表中的累积值", u"在流量表中分高低位累积值的计算", 16, false, IsShort, kTooLong,
     kOfAccumulated},
    {u"计算校验码", u"计算校验码", 0, false, IsAnything, {},
     CheckWordByProtocol},
}};
// clang-format on

Text FilledInput(const ToolMode& mode, Text input) {
    if (Len(input) < mode.filledTo) FitTextWidth(input, mode.filledTo);
    return input;
}

}  // namespace commtest
