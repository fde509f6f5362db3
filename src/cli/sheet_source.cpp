#include "cli/sheet_source.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "cli/catalogue_access.h"

namespace commtest {

SheetSource::SheetSource(FolderFiles& files, Console& console)
    : dialogs_(console), session_({port_, dialogs_, clock_, files, store_, settings_, program_}) {
    OpenCatalogueOf(files, store_);
    LoadCatalogueLists(Form());
}

void SheetSource::ChooseProtocol(const Text& protocol) {
    Form().ConCommTypeList.Set(protocol);
    RunIfSet(Form().ConCommTypeList.Click);
}

std::vector<InstrumentSheet> SheetSource::All() {
    std::vector<InstrumentSheet> all;
    for (const Text& protocol : Form().ConCommTypeList.Items()) {
        ChooseProtocol(protocol);
        std::vector<InstrumentSheet> sheets = CollectInstrumentSheets(Form());
        std::move(sheets.begin(), sheets.end(), std::back_inserter(all));
    }
    return all;
}

InstrumentSheet SheetSource::Of(const Text& instrument) {
    const std::vector<Text> protocols = Form().ConCommTypeList.Items();
    const auto protocol = std::find_if(protocols.begin(), protocols.end(), [&](const Text& each) {
        const std::vector<Text> names = InstrumentNames(store_, each);
        return std::find(names.begin(), names.end(), instrument) != names.end();
    });
    if (protocol == protocols.end()) RequireKnown(u"仪表", instrument, {}, u"list instruments");
    ChooseProtocol(*protocol);
    Form().InstrumentList().Set(instrument);
    return LoadInstrumentSheet(Form());
}

}  // namespace commtest
