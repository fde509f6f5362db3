#include "catalogue/catalogue_schema.h"

#include <gtest/gtest.h>

#include "catalogue/statements.h"
#include "runtime/runtime_error.h"
#include "support/sqlite_store.h"

namespace commtest {
namespace {

// What the engine says about how it runs a statement.
std::string PlanOf(Store& store, const Text& sql) {
    std::string plan;
    const StoreRows steps = store.Query(u"EXPLAIN QUERY PLAN " + sql);
    for (std::size_t i = 0; i < steps.rows.size(); ++i) plan += ToUtf8(steps.At(i, 3)) + "\n";
    return plan;
}

TEST(CatalogueTables, AStoreThatHoldsAllOfThemIsTaken) {
    EXPECT_NO_THROW(RequireTables(*testing::MakeEmptyCatalogue(), CatalogueTables()));
}

TEST(CatalogueTables, AStoreThatLacksAnyOfThemIsRefusedByItsName) {
    for (const Text& table : CatalogueTables()) {
        const auto store = testing::MakeEmptyCatalogue();
        store->Execute((table == u"仪表参数" ? u"DROP VIEW " : u"DROP TABLE ") + table);
        try {
            RequireTables(*store, {table});
            FAIL() << ToUtf8(table);
        } catch (const NoCatalogue& error) {
            EXPECT_EQ(ToUtf8(error.Message()), "no such table: " + ToUtf8(table));
        }
    }
}

TEST(CatalogueTables, StoreWithoutTheSettingsOfTheEnglishFaceIsTaken) {
    const auto store = testing::MakeEmptyCatalogue();
    store->Execute(u"DROP TABLE \"表格-设置\"");
    EXPECT_NO_THROW(RequireTables(*store, CatalogueTables()));
}

TEST(CatalogueSchema, RecordedTrafficIsValidUnlessMarkedOtherwise) {
    const auto store = testing::MakeEmptyCatalogue();
    store->AddRow(u"通讯_仿真", {u"仪表名称"}, {u"表一"});
    EXPECT_EQ(ToUtf8(store->Query(u"SELECT 有效, ID From 通讯_仿真").At(0, 0)), "1");
}

TEST(CatalogueSchema, TheQueriesOfASelectionUseIndexes) {
    const auto store = testing::MakeEmptyCatalogue();
    const Statements& page = StatementsOf(store->Engine());
    const std::string parameters = PlanOf(*store, StatementWith(page.parametersOfInstrument, {u"表一"}));
    EXPECT_NE(parameters.find("instruments_by_name"), std::string::npos) << parameters;
    EXPECT_NE(parameters.find("parameters_of_instrument"), std::string::npos) << parameters;
    const std::string pair = PlanOf(*store, StatementWith(page.recordedPair, {u"表一", u" 40", u"甲"}));
    EXPECT_NE(pair.find("recordings_by_instrument (仪表名称=? AND 说明=? AND 回送=?)"), std::string::npos)
        << pair;
}

TEST(CatalogueSchema, TheListsOfInstrumentsAndChipsUseIndexes) {
    const auto store = testing::MakeEmptyCatalogue();
    const Statements& page = StatementsOf(store->Engine());
    for (const Text& list : {page.catalogueList, page.chipList}) {
        const std::string plan = PlanOf(*store, list);
        EXPECT_NE(plan.find("SEARCH 仪表_名称 USING INDEX instruments_by_code (编号=?)"), std::string::npos)
            << plan;
    }
}

}  // namespace
}  // namespace commtest
