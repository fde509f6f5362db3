#include "cli/round_trip.h"

#include <array>
#include <optional>

#include "cli/round_trip_reasons.h"
#include "numbers/comm_code_explainer.h"
#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "tools/tool_modes.h"

namespace commtest {

namespace {

namespace format = register_format;

Text FormatName(int formatNumber) { return u"格式 " + WholeText(formatNumber); }

// Why there is no way back at all, empty if there is one.
Text WhyOneWay(int formatNumber) {
    switch (formatNumber) {
        case format::kAccumulated:
        case format::kPlainHex:
        case format::kIeeeSingleReadOnly: return FormatName(formatNumber) + u" 只能读出，数值不能写成代码";
        case format::kSignMagnitudeSwapped:
        case format::kTwosComplement:
        case format::kCustomFloat:
        case format::kIeeeSingle:
        case format::kBcd:
        case format::kSignMagnitude:
        case format::kOneByte:
        case format::kUneven: return {};
        default: return FormatName(formatNumber) + u" 不作换算，原样输出";
    }
}

std::optional<Text> Back(Conversion conversion, Text result) {
    conversion.direction = conversion.direction == Direction::ToCode ? Direction::ToValue : Direction::ToCode;
    try {
        Convert(conversion, result);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    return result;
}

bool IsSameNumber(const Text& one, const Text& other) {
    return IsMet([&] { return ToNumber(one) == ToNumber(other); });
}

Text Because(const std::vector<Reason>& reasons, const RoundTrip& trip) {
    for (const Reason& reason : reasons) {
        if (IsMet([&] { return reason.applies(trip); })) return u"：" + Text(reason.words);
    }
    return {};
}

std::optional<Text> NoteOfCode(const RoundTrip& trip, int formatNumber) {
    const Text why = Because(ReasonsOfCode(formatNumber), trip);
    if (!trip.back) return u"代码 " + trip.code + u" 读不出数值" + why;
    if (!IsSameNumber(trip.value, *trip.back)) {
        return u"代码 " + trip.code + u" 读回为 " + *trip.back + u"，不是 " + trip.value + why;
    }
    if (IsNegativeZero(trip)) return Text(kNegativeZero);
    if (formatNumber == format::kBcd && HasOtherBcdDigits(trip)) {
        return u"代码 " + trip.code + u" 不是 BCD 码：" + Text(kBcdDigits);
    }
    return std::nullopt;
}

std::optional<Text> NoteOfValue(const RoundTrip& trip, int formatNumber) {
    const Text why = Because(ReasonsOfValue(formatNumber), trip);
    if (!trip.back) return u"数值 " + trip.value + u" 写不成代码" + why;
    if (*trip.back == UCase(trip.code)) return std::nullopt;
    return u"数值 " + trip.value + u" 写回为 " + *trip.back + u"，不是 " + trip.code + why;
}

std::optional<Text> NoteOfWayBack(const Conversion& conversion, const Text& input, const Text& result) {
    if (const Text why = WhyOneWay(conversion.format); !why.empty()) return why;
    const std::optional<Text> back = Back(conversion, result);
    return conversion.direction == Direction::ToCode ? NoteOfCode({input, result, back}, conversion.format)
                                                     : NoteOfValue({result, input, back}, conversion.format);
}

// The modes of the tool that do such a conversion whatever the protocol, but for the one that writes singles:
// it shows what the codec gives.
struct ModeOfTool {
    Conversion conversion;
    std::size_t mode;
};
constexpr std::array<ModeOfTool, 4> kModesOfTool = {{
    {{format::kCustomFloat, Direction::ToCode}, 0},
    {{format::kCustomFloat, Direction::ToValue}, 1},
    {{format::kIeeeSingle, Direction::ToValue}, 5},
    {{format::kAccumulated, Direction::ToValue}, 6},
}};

std::optional<Text> NoteOfMode(const ToolMode& mode, const Text& input, const Text& result) {
    constexpr int kAnyProtocol = 0;
    const Text filled = FilledInput(mode, input);
    if (!mode.accepts(filled)) return std::nullopt;
    const Text shown = mode.answer(filled, kAnyProtocol).result.value_or(Text());
    if (shown == result) return std::nullopt;
    return u"校验码工具的“" + Text(mode.caption) + u"”显示 " + shown;
}

std::optional<Text> NoteOfTool(const Conversion& conversion, const Text& input, const Text& result) {
    for (const ModeOfTool& known : kModesOfTool) {
        if (known.conversion == conversion) return NoteOfMode(kToolModes[known.mode], input, result);
    }
    return std::nullopt;
}

// Whether the explanation of a code leads to the value that the codec reads.
bool IsExplainedAsRead(int formatNumber, const Text& code) {
    constexpr int kFlowMeterBcd = 10;
    const int length = Len(code);
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped: return length != 16;
        case format::kTwosComplement: return length == 2 || (length == 4 && code != u"8000");
        case format::kSignMagnitude: return length == 4 && code != u"8000";
        case format::kOneByte: return length == 2;
        case format::kBcd: return length == 10 || (length < 10 && code.starts_with(u"00"));
        case format::kAccumulated: return length == 16;
        case kExplainerOfDisplayCode:
        case kFlowMeterBcd:
        case format::kUneven: return false;
        default: return true;
    }
}

std::optional<Text> NoteOfExplanation(const Conversion& conversion, const Text& input, const Text& result) {
    const bool isToCode = conversion.direction == Direction::ToCode;
    if (isToCode && conversion.format == format::kIeeeSingle) {
        return u"换算过程是自定义浮点数的，不得出 " + result;
    }
    if (IsExplainedAsRead(conversion.format, isToCode ? result : input)) return std::nullopt;
    return u"换算过程按另一种读法，与结果不符";
}

}  // namespace

void Convert(const Conversion& conversion, Text& text) {
    if (conversion.direction == Direction::ToCode) {
        ValueToCommCode(text, conversion.format);
    } else {
        CommCodeToValue(text, conversion.format);
    }
}

std::vector<Text> RoundTripNotes(const Conversion& conversion, const Text& input, const Text& result) {
    std::vector<Text> notes;
    for (const auto noteOf : {NoteOfWayBack, NoteOfExplanation, NoteOfTool}) {
        if (const auto note = noteOf(conversion, input, result)) notes.push_back(*note);
    }
    return notes;
}

}  // namespace commtest
