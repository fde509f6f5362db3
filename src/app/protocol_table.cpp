#include "app/protocol_table.h"

#include <algorithm>

#include "protocol_native/native_protocols.h"
#include "protocol_special/hct615d_request.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {

namespace {

// A protocol whose family is not built yet: it has its code, end rule, menu, address form and display mode,
// but builds nothing and has no parser. The command line says so where one is asked for.
Protocol NotBuiltYet(int code, TextView name, bool (*replyIsComplete)(const MainForm&),
                     DisplayMode displayMode, OperationMenu menu) {
    Protocol protocol;
    protocol.code = code;
    protocol.name = name;
    protocol.replyIsComplete = replyIsComplete;
    protocol.displayMode = displayMode;
    protocol.menu = menu;
    protocol.composeAddress = ComposeTwoDigitAddress;
    return protocol;
}

std::vector<Protocol> ModbusAsciiProtocols() {
    using enum DisplayMode;
    Protocol plain = NotBuiltYet(21, u"ModBus-Ascii协议", EndsWithLineFeed, Ascii, OperationMenu::Modbus);
    Protocol first =
        NotBuiltYet(22, u"ModBus-Ascii协议-定制01", EndsWithLineFeed, Ascii, OperationMenu::Modbus);
    plain.showFrameAddress = ShowAsciiFrameAddress;
    first.showFrameAddress = ShowAsciiFrameAddress;
    // Its replies are never recognised and never parsed: each frame times out and the cycle goes on.
    Protocol second = NotBuiltYet(23, u"ModBus-Ascii协议-定制02", nullptr, Unchanged, OperationMenu::None);
    second.composeAddress = nullptr;
    return {plain, first, second};
}

std::vector<Protocol> ModbusRtuProtocols() {
    const auto row = [](int code, TextView name, OperationMenu menu) {
        Protocol protocol = NotBuiltYet(code, name, EndsByRtuRule, DisplayMode::Hexadecimal, menu);
        if (code <= 34) protocol.showFrameAddress = ShowByteFrameAddress;
        return protocol;
    };
    return {row(31, u"ModBus-RTU协议", OperationMenu::Modbus),
            row(32, u"ModBus-RTU协议-定制01", OperationMenu::Modbus),
            row(33, u"ModBus-RTU协议-KD700记录仪", OperationMenu::Recorder),
            row(34, u"ModBus-RTU协议-TQ记录仪板卡", OperationMenu::Modbus),
            row(35, u"ModBus-RTU协议-标准流量表", OperationMenu::Modbus),
            row(51, u"ModBus-RTU协议-M46T", OperationMenu::FlowMeter)};
}

std::vector<Protocol> SpecialProtocols() {
    using enum DisplayMode;
    Protocol novax =
        NotBuiltYet(41, u"TQ特殊仪表协议-NOVAX", HasTenBytes, Hexadecimal, OperationMenu::Modbus);
    novax.composeAddress = ComposeDoubledAddress;
    const Protocol hct =
        NotBuiltYet(42, u"TQ特殊仪表协议-HCT615D", HasSixtyFourBytes, Hexadecimal, OperationMenu::None);
    return {novax, hct};
}

ProtocolTable MakeTable() {
    ProtocolTable table;
    for (const auto& family :
         {NativeProtocols(), ModbusAsciiProtocols(), ModbusRtuProtocols(), SpecialProtocols()}) {
        table.rows.insert(table.rows.end(), family.begin(), family.end());
    }
    std::sort(table.rows.begin(), table.rows.end(),
              [](const Protocol& a, const Protocol& b) { return a.code < b.code; });
    // A code without a row polls with the request of code 42 and has neither end rule nor parser.
    table.defaultRow.buildRead = BuildHct615dReadRequest;
    return table;
}

}  // namespace

const ProtocolTable& Protocols() {
    static const ProtocolTable table = MakeTable();
    return table;
}

}  // namespace commtest
