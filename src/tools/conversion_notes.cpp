#include "tools/conversion_notes.h"

#include <array>

#include "numbers/comm_code_explainer.h"
#include "numbers/register_codecs.h"
#include "tools/tool_modes.h"

namespace commtest {

namespace {

namespace format = register_format;

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

std::optional<ToolNote> NoteOfMode(std::size_t number, const Text& input, const Text& result) {
    constexpr int kAnyProtocol = 0;
    const ToolMode& mode = kToolModes[number];
    const Text filled = FilledInput(mode, input);
    if (!mode.accepts(filled)) return std::nullopt;
    const Text shown = mode.answer(filled, kAnyProtocol).result.value_or(Text());
    if (shown == result) return std::nullopt;
    return ToolNote{number, shown};
}

std::optional<ToolNote> NoteOfTool(const Conversion& conversion, const Text& input, const Text& result) {
    for (const ModeOfTool& known : kModesOfTool) {
        if (known.conversion == conversion) return NoteOfMode(known.mode, input, result);
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

std::optional<ExplanationNote> NoteOfExplanation(const Conversion& conversion, const Text& input,
                                                 const Text& result) {
    const bool isToCode = conversion.direction == Direction::ToCode;
    if (isToCode && conversion.format == format::kIeeeSingle) return ExplanationNote::IsOfCustomFloat;
    if (IsExplainedAsRead(conversion.format, isToCode ? result : input)) return std::nullopt;
    return ExplanationNote::ReadsOtherwise;
}

std::optional<Loss> LossOf(const Conversion& conversion, const Text& input) {
    const bool isToCode = conversion.direction == Direction::ToCode;
    return isToCode ? LossOfValue(input, conversion.format) : LossOfCode(input, conversion.format);
}

}  // namespace

ConversionNotes NotesOf(const Conversion& conversion, const Text& input, const Text& result) {
    return {LossOf(conversion, input), NoteOfExplanation(conversion, input, result),
            NoteOfTool(conversion, input, result)};
}

}  // namespace commtest
