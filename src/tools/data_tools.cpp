#include "tools/data_tools.h"

#include <cstdio>

#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "tools/tool_modes.h"

namespace commtest {

namespace {

constexpr std::size_t kProtocolButtons = 15;
constexpr TextView kSpareButton = u"备用";
constexpr int kInHexadecimal = 0;

enum Box : std::size_t { kInput, kResult, kExplanation, kNormalised };

Text StatusText(const DateTime& now) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d  %02d:%02d:%02d", now.year, now.month, now.day, now.hour,
                  now.minute, now.second);
    return FromUtf8(text);
}

void LoadProtocols(DataTools& tools, const std::vector<ToolProtocol>& protocols) {
    tools.ProtocolCode = 0;
    tools.ProtocolCodes.clear();
    tools.DataCrcMode.Show(-1);
    tools.DataCrcMode.Captions.assign(kProtocolButtons, Text(kSpareButton));
    for (const ToolProtocol& protocol : protocols) {
        const std::size_t row = tools.ProtocolCodes.size();
        if (row < kProtocolButtons) tools.DataCrcMode.Captions[row] = protocol.name;
        tools.ProtocolCodes.push_back(protocol.code);
    }
}

// The input in both of its forms. A byte has no character of its own above 7F, so neither is made of the
// other.
struct NormalisedInput {
    Text characters;
    HexText bytes;
};

bool IsSeparator(char16_t character) { return character == u' ' || character == u'\\'; }

NormalisedInput Normalise(const Text& input) {
    NormalisedInput normalised;
    for (std::size_t at = 0; at < input.size(); ++at) {
        if (!IsSeparator(input[at])) {
            normalised.characters += input[at];
            normalised.bytes += HexTextOfReadable(Text(1, input[at]));
            continue;
        }
        const TextView pair = TextView(input).substr(at + 1, 2);
        const auto byte = HexPairValue(pair);
        if (!byte || pair.size() < 2 || pair[1] == u' ') break;  // Q193: the rest is dropped
        normalised.characters += static_cast<char16_t>(*byte);
        AppendHexByte(normalised.bytes, *byte);
        at += pair.size();
    }
    return normalised;
}

void FillInput(DataTools& tools, const ToolMode& mode) {
    tools.OutString[kInput].Set(FilledInput(mode, tools.OutString[kInput].Value()));
}

void ShowAnswer(DataTools& tools, const ToolAnswer& answer) {
    if (!answer.message.empty()) tools.dialogs.ShowMessage(Text(answer.message), {});
    if (answer.result) tools.OutString[kResult].Set(*answer.result);
    if (answer.explanation) tools.OutString[kExplanation].Set(*answer.explanation);
}

}  // namespace

DataTools::DataTools(Dialogs& boxes, Clock& wallClock, ProgramProcess& process)
    : dialogs(boxes), clock(wallClock), program(process) {
    Window.SetVisible(false);
    for (const ToolMode& mode : kToolModes) OutMode.Captions.emplace_back(mode.caption);
    DataCrcMode.Captions.assign(kProtocolButtons, Text(kSpareButton));
    ConShowType.Captions = {u"十六进制", u"AscⅡ码"};  // Q186: spelled so
    Command1[1].Set(u"退    出");
    OutString[kInput].Change = [this] { OutString_Change(*this, kInput); };
    OutMode.Click = [this](int index) { OutMode_Click(*this, index); };
    DataCrcMode.Click = [this](int index) { DataCrcMode_Click(*this, index); };
    ConShowType.Click = [this](int) { OutString_Change(*this, kInput); };
}

void Form_Load(DataTools& tools, const std::vector<ToolProtocol>& protocols) {
    LoadProtocols(tools, protocols);
    tools.OutString[kResult].Set({});
    tools.OutString[kExplanation].Set({});
    Timer1_Timer(tools);
    tools.Caption.Set(u"通讯协议校验码工具 V " + VersionText(tools.program.Version()));
    tools.OutMode.Choose(kCheckWordMode);
    if (!protocols.empty()) tools.DataCrcMode.Choose(0);
    tools.Timer1.SetEnabled(true);
    tools.Window.SetVisible(true);
}

void Form_Unload(DataTools& tools) {
    tools.Timer1.SetEnabled(false);
    tools.Window.SetVisible(false);
}

void Command1_Click(DataTools& tools, int index) {
    if (index == 1) return Form_Unload(tools);
    if (tools.OutString[kInput].Value().empty()) return;
    const ToolMode& mode = kToolModes.at(static_cast<std::size_t>(tools.CurrentMode));
    FillInput(tools, mode);                                   // Q194: also where it is refused
    if (mode.clearsResult) tools.OutString[kResult].Set({});  // Q195: of one mode
    const Text& input = tools.OutString[kInput].Value();
    if (!mode.accepts(input)) return tools.dialogs.ShowMessage(Text(mode.refusal), {});
    ShowAnswer(tools, mode.answer(input, tools.ProtocolCode));  // Q192: not of the normalised input
}

void OutMode_Click(DataTools& tools, int index) {
    tools.CurrentMode = static_cast<std::int16_t>(index);
    tools.Command1[0].Set(tools.OutMode.Captions.at(static_cast<std::size_t>(index)));
}

void DataCrcMode_Click(DataTools& tools, int index) {
    const auto row = static_cast<std::size_t>(index);
    if (row >= tools.ProtocolCodes.size()) throw RuntimeError(RuntimeError::kSubscript);
    tools.ProtocolCode = tools.ProtocolCodes[row];
}

void OutString_Change(DataTools& tools, int index) {
    if (index != kInput) return;
    NormalisedInput normalised = Normalise(tools.OutString[kInput].Value());
    const bool isHexadecimal = tools.ConShowType.IsChosen(kInHexadecimal);
    tools.OutString[kNormalised].Set(isHexadecimal ? std::move(normalised.bytes)
                                                   : std::move(normalised.characters));
}

void Timer1_Timer(DataTools& tools) { tools.StatusBar1.Set(StatusText(tools.clock.Now())); }

}  // namespace commtest
