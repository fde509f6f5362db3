#include "app/protocol_table.h"

#include <algorithm>

#include "protocol_modbus/modbus_protocols.h"
#include "protocol_native/native_protocols.h"
#include "protocol_special/hct615d_request.h"
#include "protocol_special/special_protocols.h"

namespace commtest {

namespace {

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
