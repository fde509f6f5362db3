#include "catalogue/table_copy.h"

#include <algorithm>

#include "catalogue/catalogue_schema.h"
#include "catalogue/number_columns.h"
#include "catalogue/statements.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

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

void EmptyTables(Store& store) {
    std::vector<Text> tables = TablesToFill();
    std::reverse(tables.begin(), tables.end());
    for (const Text& table : tables) store.Execute(u"Delete From " + table);
}

std::vector<TableSize> CopyAll(Store& from, Store& to, bool hasTables, const RowProgress& progress) {
    std::vector<TableSize> copied;
    BeginReading(from);
    try {
        to.BeginTransaction();
        if (hasTables) {
            EmptyTables(to);
        } else {
            CreateCatalogueTables(to);
        }
        for (const Text& table : TablesToFill()) FillTable(from, to, table, copied, progress);
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
        return all;
    }();
    return tables;
}

int CopyTable(Store& from, Store& to, const Text& table, const RowProgress& progress) {
    const std::vector<Text> columns = to.Query(u"SELECT * From " + table + u" Where 1 = 0").columns;
    const OwnKeys ownKeys(to, table);
    const auto rows = from.OpenCursor(u"SELECT " + Listed(columns) + u" From " + table + OrderOf(table));
    std::vector<StoreValue> values(columns.size());
    int count = 0;
    while (rows->Next()) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = ValueFor(to.Engine(), columns[i], rows->ValueAt(i));
        to.AddRow(table, columns, values);
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
    if (store.Engine() == StoreEngine::PostgreSql)
        store.Execute(u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ");
}

bool HoldsCatalogue(Store& store) {
    return IsMet([&] {
        RequireTables(store, CatalogueTables());
        return true;
    });
}

std::vector<TableSize> SizesOfTables(Store& store) {
    std::vector<TableSize> sizes;
    for (const Text& table : TablesToFill())
        sizes.push_back({table, ToWhole32(store.Query(u"SELECT COUNT(*) From " + table).At(0, 0))});
    return sizes;
}

std::vector<TableSize> CopyCatalogueInto(Store& from, Store& to, const RowProgress& progress) {
    return CopyAll(from, to, HoldsCatalogue(to), progress);
}

std::vector<TableSize> CopyCatalogueIntoNew(Store& from, Store& to) { return CopyAll(from, to, false, {}); }

}  // namespace commtest
