#include "app/tool_window.h"

#include "catalogue/instrument_catalogue.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

std::vector<ToolProtocol> ProtocolsOf(Store& store) {
    const StoreRows rows = InstrumentCatalogue(store).ProtocolList();
    std::vector<ToolProtocol> protocols;
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        protocols.push_back({rows.At(row, 0), ToWhole16(rows.At(row, 1))});
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
