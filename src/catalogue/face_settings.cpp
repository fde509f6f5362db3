#include "catalogue/face_settings.h"

#include <algorithm>

#include "catalogue/catalogue_schema.h"
#include "catalogue/shipped_catalogue.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

bool IsInEveryCatalogue(TextView table) {
    const std::vector<Text>& tables = CatalogueTables();
    return std::find(tables.begin(), tables.end(), table) != tables.end();
}

// What `ask` gives; nothing where the catalogue lacks the table.
template <typename Ask>
auto OfCatalogue(const Store& store, TextView table, Ask&& ask) -> decltype(ask()) {
    try {
        return ask();
    } catch (const RuntimeError&) {
        if (IsInEveryCatalogue(table) || !store.IsOpen()) throw;
        return {};
    }
}

StoreRows OrShipped(StoreRows rows, TextView table, SettingsUse use) {
    if (rows.rows.empty() && !IsInEveryCatalogue(table)) return ShippedSettings(table, use);
    return rows;
}

}  // namespace

std::vector<ProtocolRecord> ProtocolsOfFace(Store& store, TextView table) {
    const InstrumentCatalogue catalogue(store);
    auto protocols = OfCatalogue(store, table, [&] { return catalogue.ProtocolList(table); });
    if (!protocols.empty()) return protocols;
    const StoreRows shipped = OrShipped({}, table, SettingsUse::Protocols);
    for (std::size_t row = 0; row < shipped.rows.size(); ++row)
        protocols.push_back({shipped.At(row, 0), shipped.At(row, 1)});
    return protocols;
}

StoreRows DataTypesOfFace(Store& store, TextView table) {
    const InstrumentCatalogue catalogue(store);
    return OrShipped(OfCatalogue(store, table, [&] { return catalogue.DataTypeList(table); }), table,
                     SettingsUse::DataTypes);
}

StoreRows GridColumnsOfFace(Store& store, TextView table) {
    const InstrumentCatalogue catalogue(store);
    return OrShipped(OfCatalogue(store, table, [&] { return catalogue.GridLayout(table); }), table,
                     SettingsUse::GridColumns);
}

}  // namespace commtest
