#include "catalogue/table_copy.h"

#include <algorithm>

#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/number_columns.h"
#include "catalogue/statements.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/face.h"

namespace commtest {

namespace {

Text Listed(const std::vector<Text>& columns) {
    Text names;
    for (const Text& column : columns) names += (names.empty() ? u"" : u",") + column;
    return names;
}

// The tables have their keys in the first column, or none.
Text OrderOf(const Text& table) {
    return KeyOfTable(table).empty() ? u"" : u" Order By " + KeyOfTable(table);
}

void FillTable(Store& from, Store& to, const Text& table, std::vector<TableSize>& copied,
               const RowProgress& progress) {
    copied.push_back({table, CopyTable(from, to, table, progress)});
    CountKeysOnwards(to, table);
}

void EmptyTables(Store& store, std::vector<Text> tables) {
    std::reverse(tables.begin(), tables.end());
    for (const Text& table : tables) store.Execute(u"Delete From " + NameInStatement(store.Engine(), table));
}

void CreateWhatIsMissing(Store& store, const std::vector<Text>& tables) {
    if (tables.empty()) {
        CreateCatalogueTables(store);
    } else if (tables.size() < TablesToFill().size()) {
        CreateEnglishSettings(store);
    }
}

// `there` are the tables that the second store has.
std::vector<TableSize> CopyAll(Store& from, Store& to, const std::vector<Text>& there,
                               const RowProgress& progress) {
    const PatienceScope patienceFrom(from, Patience::Unlimited);
    const PatienceScope patienceTo(to, Patience::Unlimited);
    std::vector<TableSize> copied;
    const std::vector<Text> tables = TablesOf(from);
    if (!there.empty() && SchemaVersionOf(to) > kSchemaVersion) throw NewerCatalogue();
    BeginReading(from);
    try {
        to.BeginTransaction();
        KeepOthersFromRewriting(to);
        EmptyTables(to, there);
        CreateWhatIsMissing(to, there);
        for (const Text& table : tables) FillTable(from, to, table, copied, progress);
        to.Commit();
    } catch (...) {
        PassOverError([&] { to.Rollback(); });
        PassOverError([&] { from.Rollback(); });
        throw;
    }
    from.Rollback();
    return copied;
}

}  // namespace

const std::vector<Text>& TablesToFill() {
    static const std::vector<Text> tables = [] {
        std::vector<Text> all = CatalogueTables();
        all.pop_back();  // the view
        all.emplace_back(kEnglishSettingsTable);
        return all;
    }();
    return tables;
}

std::vector<Text> TablesOf(Store& store) {
    std::vector<Text> tables = TablesToFill();
    if (!HasEnglishSettings(store)) std::erase(tables, kEnglishSettingsTable);
    return tables;
}

int CopyTable(Store& from, Store& to, const Text& table, const RowProgress& progress) {
    const Text ownName = NameInStatement(to.Engine(), table);
    const std::vector<Text> columns = to.Query(u"SELECT * From " + ownName + u" Where 1 = 0").columns;
    const OwnKeys ownKeys(to, table);
    const auto rows = from.OpenCursor(u"SELECT " + Listed(columns) + u" From " +
                                      NameInStatement(from.Engine(), table) + OrderOf(table));
    std::vector<StoreValue> values(columns.size());
    int count = 0;
    while (rows->Next()) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = ValueFor(to.Engine(), columns[i], rows->ValueAt(i));
        to.AddRow(ownName, columns, values);
        ++count;
        if (progress) progress(table, count);
    }
    return count;
}

void CountKeysOnwards(Store& store, const Text& table) {
    const std::optional<Text> statement = KeyCounterStatement(store.Engine(), table);
    if (statement) store.Execute(*statement);
}

void BeginReading(Store& store) {
    store.BeginTransaction();
    if (store.Engine() != StoreEngine::PostgreSql) return;
    try {
        store.Execute(u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ");
    } catch (...) {
        PassOverError([&] { store.Rollback(); });
        throw;
    }
}

bool HoldsCatalogue(Store& store) { return HasTables(store, CatalogueTables()); }

std::vector<TableSize> SizesOfTables(Store& store) {
    std::vector<TableSize> sizes;
    for (const Text& table : TablesOf(store)) {
        const Text name = NameInStatement(store.Engine(), table);
        sizes.push_back({table, ToWhole32(store.Query(u"SELECT COUNT(*) From " + name).At(0, 0))});
    }
    return sizes;
}

std::vector<TableSize> CopyCatalogueInto(Store& from, Store& to, const RowProgress& progress) {
    return CopyAll(from, to, HoldsCatalogue(to) ? TablesOf(to) : std::vector<Text>(), progress);
}

std::vector<TableSize> CopyCatalogueIntoNew(Store& from, Store& to) { return CopyAll(from, to, {}, {}); }

}  // namespace commtest
