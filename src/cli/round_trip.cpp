#include "cli/round_trip.h"

#include <array>
#include <optional>

#include "cli/round_trip_reasons.h"
#include "numbers/float_value_explainers.h"
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
        if (reason.applies(trip)) return u"：" + Text(reason.words);
    }
    return {};
}

bool IsNegativeZero(const Text& value) { return Trim(value).starts_with(u'-') && IsSameNumber(value, u"0"); }

std::optional<Text> NoteOfCode(const RoundTrip& trip, int formatNumber) {
    const Text why = Because(ReasonsOfCode(formatNumber), trip);
    if (!trip.back) return u"代码 " + trip.result + u" 读不出数值" + why;
    if (!IsSameNumber(trip.input, *trip.back)) {
        return u"代码 " + trip.result + u" 读回为 " + *trip.back + u"，不是 " + trip.input + why;
    }
    if (IsNegativeZero(trip.input)) return u"负零没有自己的代码，负号丢失";
    return std::nullopt;
}

std::optional<Text> NoteOfValue(const RoundTrip& trip, int formatNumber) {
    const Text why = Because(ReasonsOfValue(formatNumber), trip);
    if (!trip.back) return u"数值 " + trip.result + u" 写不成代码" + why;
    if (*trip.back == UCase(trip.input)) return std::nullopt;
    return u"数值 " + trip.result + u" 写回为 " + *trip.back + u"，不是 " + trip.input + why;
}

std::optional<Text> NoteOfWayBack(const Conversion& conversion, const Text& input, const Text& result) {
    if (const Text why = WhyOneWay(conversion.format); !why.empty()) return why;
    const RoundTrip trip = {input, result, Back(conversion, result)};
    return conversion.direction == Direction::ToCode ? NoteOfCode(trip, conversion.format)
                                                     : NoteOfValue(trip, conversion.format);
}

// The modes of the tool that do such a conversion whatever the protocol.
struct ModeOfTool {
    Conversion conversion;
    std::size_t mode;
};
constexpr std::array<ModeOfTool, 5> kModesOfTool = {{
    {{format::kCustomFloat, Direction::ToCode}, 0},
    {{format::kCustomFloat, Direction::ToValue}, 1},
    {{format::kIeeeSingle, Direction::ToCode}, 4},
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

// The explanation of a single is that of the custom float.
std::optional<Text> NoteOfExplanation(const Conversion& conversion, const Text& input, const Text& result) {
    if (conversion != Conversion{format::kIeeeSingle, Direction::ToCode}) return std::nullopt;
    Text explained = input;
    Text explanation;
    PassOverError([&] { ExplainValueToFloatCode(explained, explanation); });
    if (explained == result) return std::nullopt;
    return u"换算过程是自定义浮点数的，不得出 " + result;
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
