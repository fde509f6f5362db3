#include "app/tool_window.h"

#include "catalogue/instrument_catalogue.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

std::vector<ToolProtocol> ProtocolsOf(Store& store) {
    std::vector<ToolProtocol> protocols;
    for (const ProtocolRecord& protocol : InstrumentCatalogue(store).ProtocolList()) {
        protocols.push_back({protocol.name, protocol.Code()});
    }
    return protocols;
}

}  // namespace

void ShowToolWindow(DataTools& tools, Store& store) {
    if (tools.Window.Visible()) return tools.Window.SetVisible(true);
    try {
        Form_Load(tools, ProtocolsOf(store));
    } catch (const RuntimeError&) {
        Form_Load(tools, {});
        throw;
    }
}

}  // namespace commtest
