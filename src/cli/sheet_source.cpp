#include "cli/sheet_source.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace commtest {

SheetSource::SheetSource(FolderFiles& files, const CataloguePlace& catalogue, Console& console)
    : dialogs_(console), session_({port_, dialogs_, clock_, files, store_, settings_, program_}) {
    OpenCatalogueOf(files, store_, catalogue, console);
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

InstrumentSheet SheetSource::Of(const Text& word) {
    std::vector<Text> known;
    std::map<Text, Text> protocolOf;
    for (const Text& protocol : Form().ConCommTypeList.Items()) {
        for (const Text& name : InstrumentNames(store_, protocol)) {
            known.push_back(name);
            protocolOf.try_emplace(name, protocol);
        }
    }
    const Text instrument = InstrumentMeant(word, known);
    ChooseProtocol(protocolOf.at(instrument));
    Form().InstrumentList().Set(instrument);
    return LoadInstrumentSheet(Form());
}

}  // namespace commtest
