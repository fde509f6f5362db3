#pragma once

#include <string>
#include <vector>

#include "support/fakes.h"
#include "support/virtual_line.h"
#include "tools/data_tools.h"

namespace commtest::testing {

// The tool over fakes. Protocols are named by their codes; texts are UTF-8.
struct ToolBench {
    void Load(const std::vector<int>& codes) {
        std::vector<ToolProtocol> protocols;
        for (const int code : codes) {
            protocols.push_back({FromUtf8("P" + std::to_string(code)), static_cast<std::int16_t>(code)});
        }
        Form_Load(tools, protocols);
    }

    // Loads one protocol and chooses a mode.
    void Choose(int mode, int protocolCode) {
        Load({protocolCode});
        tools.OutMode.Choose(mode);
    }

    void Type(const std::string& input) { tools.OutString[0].Set(FromUtf8(input)); }

    // What former conversions may have left.
    void Leave(const std::string& result, const std::string& explanation) {
        tools.OutString[1].Set(FromUtf8(result));
        tools.OutString[2].Set(FromUtf8(explanation));
    }

    void Press() { Command1_Click(tools, 0); }

    std::string Box(std::size_t index) const { return ToUtf8(tools.OutString.at(index).Value()); }
    std::string Input() const { return Box(0); }
    std::string Result() const { return Box(1); }
    std::string Explanation() const { return Box(2); }
    std::string Normalised() const { return Box(3); }

    VirtualLine line;
    FakeDialogs dialogs;
    FakeProgram program;
    DataTools tools{dialogs, line, program};
};

// The tool in a mode, its button pressed on an input over boxes that hold "was" already.
struct PressedTool : ToolBench {
    PressedTool(int mode, int protocolCode, const std::string& input) {
        Choose(mode, protocolCode);
        Type(input);
        Leave("was", "was");
        Press();
    }
};

}  // namespace commtest::testing
