// Arbitrary inputs into the check-word tool: whatever is typed and pressed, no error leaves it.
//
// The first byte chooses the conversion (its low three bits) and the form of the normalised input (the next
// one), the second the protocol; the rest is the input.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "runtime/hex_text.h"
#include "support/fakes.h"
#include "support/virtual_line.h"
#include "tools/data_tools.h"
#include "tools/tool_modes.h"

namespace commtest::fuzz {

namespace {

constexpr int kToCode = 2;
constexpr int kOfCode = 3;
constexpr int kHexadecimal = 0;
constexpr int kCharacters = 1;
constexpr std::array<std::int16_t, 15> kCodes = {0, 2, 3, 11, 12, 13, 21, 22, 31, 32, 33, 34, 41, -1, 32767};

const Text kLeft = u"left by a former conversion";

// What a press of the button leaves.
struct Pressed {
    std::array<Text, 4> boxes;
    std::vector<std::string> messages;

    const Text& Input() const { return boxes[0]; }
    const Text& Result() const { return boxes[1]; }
    const Text& Explanation() const { return boxes[2]; }

    bool operator==(const Pressed&) const = default;
};

class Bench {
  public:
    Bench() {
        std::vector<ToolProtocol> protocols;
        for (const std::int16_t code : kCodes) protocols.push_back({u"P", code});
        Form_Load(tools_, protocols);
    }

    void Choose(int mode, int protocol) {
        tools_.OutMode.Choose(mode);
        tools_.DataCrcMode.Choose(protocol);
    }

    Pressed PressOn(const Text& input) {
        dialogs_.Shown.clear();
        tools_.OutString[0].Set(input);
        for (const std::size_t box : {1U, 2U}) tools_.OutString[box].Set(kLeft);
        Command1_Click(tools_, 0);
        Pressed pressed;
        for (std::size_t box = 0; box < 4; ++box) pressed.boxes[box] = tools_.OutString[box].Value();
        pressed.messages = dialogs_.Texts();
        return pressed;
    }

    Text Normalised(const Text& input, int showType) {
        tools_.OutString[0].Set(input);
        tools_.ConShowType.Choose(showType);
        return tools_.OutString[3].Value();
    }

  private:
    testing::VirtualLine line_;
    testing::FakeDialogs dialogs_;
    testing::FakeProgram program_;
    DataTools tools_{dialogs_, line_, program_};
};

bool IsOf(const Text& text, TextView characters) { return text.find_first_not_of(characters) == Text::npos; }

// --- The normalised input ---

void NormalisedInput(Bench& bench, const Text& input) {
    const Text bytes = bench.Normalised(input, kHexadecimal);
    const Text characters = bench.Normalised(input, kCharacters);
    Require(IsOf(bytes, u" 0123456789ABCDEF"), "bytes are written in hexadecimal");
    const auto blanks = std::count(bytes.begin(), bytes.end(), u' ');
    Require(blanks == static_cast<std::ptrdiff_t>(characters.size()), "each character has its byte");
    const std::size_t separator = input.find_first_of(u" \\");
    Require(characters.starts_with(input.substr(0, separator)), "it begins with the plain characters");
    if (separator == Text::npos) Require(characters == input, "an input without separators is normal");
}

void NormalHexText(Bench& bench, std::string_view bytes) {
    HexText text;
    for (const char byte : bytes) AppendHexByte(text, static_cast<unsigned char>(byte));
    Require(bench.Normalised(text, kHexadecimal) == text, "HexText is normal itself");
}

// --- The button ---

void FilledUp(const ToolMode& mode, const Text& input, const Text& filled) {
    const auto length = std::max(input.size(), static_cast<std::size_t>(mode.filledTo));
    Require(filled.size() == length && filled.ends_with(input), "an input is filled up only");
    Require(IsOf(filled.substr(0, length - input.size()), u"0"), "it is filled up with zeros");
}

void Refused(int mode, const Pressed& pressed) {
    const ToolMode& row = kToolModes.at(static_cast<std::size_t>(mode));
    Require(pressed.messages == std::vector<std::string>{ToUtf8(row.refusal)}, "a refusal is told");
    Require(pressed.Explanation() == kLeft, "a refusal leaves the explanation");
    Require(pressed.Result() == (mode == kToCode ? Text() : kLeft), "one conversion empties the result");
}

void CodeByProtocol(Bench& bench, int mode, int code, const Pressed& pressed) {
    const bool isNative = code >= 11 && code <= 13;
    Require(pressed.Explanation().empty() == !isNative, "only a native code is explained");
    const bool isKnown = isNative || code == 21 || code == 22 || (code >= 31 && code <= 33);
    if (!isKnown) Require(pressed.Result() == pressed.Input(), "an unknown protocol shows the text");
    if (mode == kToCode) return;
    bench.Choose(kToCode, static_cast<int>(std::find(kCodes.begin(), kCodes.end(), code) - kCodes.begin()));
    const Pressed other = bench.PressOn(pressed.Input());
    if (other.messages.empty()) Require(other == pressed, "both ways are the same conversion");
}

void CheckWord(int code, const Pressed& pressed) {
    const Text& input = pressed.Input();
    const Text& result = pressed.Result();
    Require(pressed.Explanation() == kLeft, "a check word explains nothing");
    Require(pressed.messages.empty() || (code == 3 && result.empty()), "only HexText is refused");
    switch (code) {
        case 2: Require(result == Left(input, 2) + u" " + Mid(input, 3), "the input is split"); return;
        case 3: {
            const bool isCheck =
                result.size() == 5 && result[0] == u'9' && result[2] == u' ' && result[3] == u'9';
            Require(isCheck || !pressed.messages.empty(), "HexText has two bytes from 90 to 9F");
            return;
        }
        case 11:
            if (input.size() < 3) return Require(result == input, "a short text is shown as it is");
            Require(result.starts_with(u"@" + input.substr(1)) && result.ends_with(u"\r"),
                    "a frame is built");
            Require(result.size() >= input.size() + 3, "it has its check");
            return;
        case 21:
            Require(result == input || result.size() == 2 || result == u"100", "a check is a byte");
            return;
        default: Require(result == kLeft, "another protocol leaves the result"); return;
    }
}

void Button(Bench& bench, int mode, int protocol, const Text& input) {
    bench.Choose(mode, protocol);
    const Pressed pressed = bench.PressOn(input);
    if (input.empty()) {
        Require(pressed == Pressed{{Text(), kLeft, kLeft, Text()}, {}}, "an empty input does nothing");
        return;
    }
    const ToolMode& row = kToolModes.at(static_cast<std::size_t>(mode));
    FilledUp(row, input, pressed.Input());
    Require(bench.PressOn(pressed.Input()) == pressed, "a second press does the same");
    const int code = kCodes.at(static_cast<std::size_t>(protocol));
    if (mode == kCheckWordMode) return CheckWord(code, pressed);
    if (!pressed.messages.empty()) return Refused(mode, pressed);
    if (mode == kToCode || mode == kOfCode) return CodeByProtocol(bench, mode, code, pressed);
    Require(!pressed.Explanation().empty() && pressed.Explanation() != kLeft, "a conversion is explained");
    Require(!pressed.Result().empty() && pressed.Result() != kLeft, "a conversion has a result");
}

void Run(std::string_view input) {
    static Bench bench;
    if (input.size() < 2) return;
    const int choice = static_cast<unsigned char>(input[0]);
    const int protocol = static_cast<unsigned char>(input[1]) % static_cast<int>(kCodes.size());
    const Text text = FromUtf8(input.substr(2));
    NormalisedInput(bench, text);
    NormalHexText(bench, input.substr(2));
    bench.Normalised(text, choice / 8 % 2);
    Button(bench, choice % 8, protocol, text);
}

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    commtest::fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
