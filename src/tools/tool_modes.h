#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "runtime/text.h"

// What the check-word tool makes of its input, a conversion a mode.
namespace commtest {

// Protocol codes that the tool knows. Any other code converts and checks nothing.
namespace tool_protocol {
inline constexpr int kCrcOfBytes = 2;
inline constexpr int kCrcOfHexText = 3;
inline constexpr int kNative = 11;
inline constexpr int kNativeSum = 12;
inline constexpr int kNativeFill = 13;
inline constexpr int kModbusAscii = 21;
inline constexpr int kModbusAsciiBcd = 22;
inline constexpr int kModbusRtu = 31;
inline constexpr int kModbusRtuFixed = 32;
inline constexpr int kModbusRtuFlow = 33;
}  // namespace tool_protocol

// What goes into the boxes; a box without an answer stays as it is.
struct ToolAnswer {
    std::optional<Text> result;
    std::optional<Text> explanation;
    TextView message;  // shown in front of them, if there is one
};

struct ToolMode {
    TextView caption;
    TextView tip;
    int filledTo;       // the input is left-filled with "0" to so many characters
    bool clearsResult;  // before the input is tested
    bool (*accepts)(const Text& input);
    TextView refusal;  // the message for an input that is not accepted
    ToolAnswer (*answer)(const Text& input, int protocolCode);  // raises no run-time error
};

// By the index of OutMode.
extern const std::array<ToolMode, 8> kToolModes;
inline constexpr int kCheckWordMode = 7;

// A longer input stays.
Text FilledInput(const ToolMode& mode, Text input);

}  // namespace commtest
