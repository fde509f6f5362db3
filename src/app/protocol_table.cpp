#include "app/protocol_table.h"

#include <algorithm>

#include "protocol_modbus/modbus_protocols.h"
#include "protocol_native/native_protocols.h"
#include "protocol_special/hct615d_request.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {

namespace {

// A protocol whose family is not built yet: it has its code, end rule, menu, address form and display mode,
// but builds nothing and has no parser. The command line says so where one is asked for.
Protocol NotBuiltYet(int code, TextView name, bool (*replyIsComplete)(const HexText&, const HexText&),
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
    for (const auto& family : {NativeProtocols(), AsciiProtocols(), RtuProtocols(), SpecialProtocols()}) {
        table.rows.insert(table.rows.end(), family.begin(), family.end());
    }
    std::sort(table.rows.begin(), table.rows.end(),
              [](const Protocol& a, const Protocol& b) { return a.code < b.code; });
    // Q162: a code without a row has neither end rule nor parser, but a request.
    table.defaultRow.buildRead = BuildHct615dReadRequest;
    return table;
}

}  // namespace

const ProtocolTable& Protocols() {
    static const ProtocolTable table = MakeTable();
    return table;
}

}  // namespace commtest
