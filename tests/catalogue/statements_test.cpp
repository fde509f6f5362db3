#include "catalogue/statements.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/sqlite_store.h"
#include "support/statement_table.h"

namespace commtest {
namespace {

using testing::AllStatements;
using testing::NamedStatement;

constexpr StoreEngine kEngines[] = {StoreEngine::Sqlite, StoreEngine::SqlServer, StoreEngine::PostgreSql};

std::string TextOf(StoreEngine engine, Text Statements::*statement) {
    return ToUtf8(StatementsOf(engine).*statement);
}

TEST(Statements, TheTableOfNamesHoldsEveryStatementOfAPage) {
    EXPECT_EQ(AllStatements().size() * sizeof(Text), sizeof(Statements));
}

TEST(Statements, EveryPageHasAPlaceForEachValue) {
    for (const StoreEngine engine : kEngines) {
        for (const NamedStatement& statement : AllStatements()) {
            const std::string text = TextOf(engine, statement.text);
            EXPECT_FALSE(text.empty()) << statement.name;
            EXPECT_EQ(std::count(text.begin(), text.end(), '?'), statement.values) << statement.name;
        }
    }
}

TEST(Statements, TheEnginesDifferInHowTheyJoinTextsOnly) {
    const Statements& sqlite = StatementsOf(StoreEngine::Sqlite);
    for (const StoreEngine engine : kEngines) {
        for (const NamedStatement& statement : AllStatements()) {
            if (statement.name == "parametersLengthInFront") continue;
            EXPECT_EQ(TextOf(engine, statement.text), ToUtf8(sqlite.*statement.text)) << statement.name;
        }
    }
    constexpr const char* head = "SELECT 参数名称,";
    constexpr const char* tail =
        " As 参数地址,小数点,属性,下限值,上限值 From  仪表_名称 INNER JOIN 仪表_参数 ON 仪表_名称.仪表ID = "
        "仪表_参数.仪表ID  Where  仪表名称 = '?' ORDER BY ID";
    const auto withJoin = [&](const std::string& join) {
        return head + ("COALESCE(长度,'')" + join + "COALESCE(地址,'')") + tail;
    };
    EXPECT_EQ(TextOf(StoreEngine::Sqlite, &Statements::parametersLengthInFront), withJoin(" || "));
    EXPECT_EQ(TextOf(StoreEngine::PostgreSql, &Statements::parametersLengthInFront), withJoin(" || "));
    EXPECT_EQ(TextOf(StoreEngine::SqlServer, &Statements::parametersLengthInFront), withJoin(" + "));
}

TEST(Statements, JoinedStatementsAreSpelledOut) {
    EXPECT_EQ(TextOf(StoreEngine::Sqlite, &Statements::instrumentsOfProtocol),
              "SELECT DISTINCT 仪表名称,协议,仪表_名称.仪表ID,编号,类别ID From  仪表_名称  Where 协议 ='?' "
              "And EXISTS "
              "(SELECT 1 From 仪表_参数 Where 仪表_参数.仪表ID = 仪表_名称.仪表ID) ORDER BY 仪表名称");
    EXPECT_EQ(
        TextOf(StoreEngine::Sqlite, &Statements::parametersOfInstrument),
        "SELECT 参数名称, 地址,长度,属性,小数点,上限值,下限值,仪表_名称.仪表ID,协议,编号,下限值 From "
        "仪表_名称 "
        "INNER JOIN 仪表_参数 ON 仪表_名称.仪表ID = 仪表_参数.仪表ID Where  仪表名称 = '?' ORDER BY ID");
    EXPECT_EQ(TextOf(StoreEngine::Sqlite, &Statements::catalogueList),
              "SELECT 协议,类别,仪表名称,文件名, 日期, "
              "功能简述,实例,属性,仪表_名称.编号,仪表_名称.仪表ID,仪表_芯片.芯片ID "
              "From 仪表_芯片 RIGHT JOIN 仪表_名称 ON 仪表_芯片.编号 = 仪表_名称.编号  Order By "
              "仪表_名称.编号,类别ID,仪表名称");
    EXPECT_EQ(TextOf(StoreEngine::Sqlite, &Statements::chipRecord),
              "SELECT 仪表名称,仪表_名称.编号,文件名, 日期, "
              "实例,属性,功能简述,仪表_名称.仪表ID,仪表_芯片.芯片ID From "
              "仪表_芯片 RIGHT JOIN 仪表_名称 ON 仪表_芯片.编号 = 仪表_名称.编号 Where 仪表名称 = '?' And "
              "文件名 = '?' "
              "Order By 编码,类别ID,仪表名称");
}

TEST(StatementWith, ValuesAreJoinedInAsTheyStandAndInTurn) {
    EXPECT_EQ(ToUtf8(StatementWith(u"a = '?' And b = '?'", {u"仪表", u"O'K"})), "a = '仪表' And b = 'O'K'");
}

TEST(StatementWith, AMarkWithinAValueIsNoPlaceForTheNext) {
    EXPECT_EQ(ToUtf8(StatementWith(u"a = '?' And b = '?'", {u"?", u"2"})), "a = '?' And b = '2'");
    EXPECT_EQ(ToUtf8(StatementWith(u"a = '?'", {u"1?"})), "a = '1?'");
}

class StatementOnSqlite : public ::testing::TestWithParam<NamedStatement> {};

TEST_P(StatementOnSqlite, Runs) {
    const auto store = testing::MakeShippedCatalogue();
    EXPECT_NO_THROW(store->Execute(testing::WithArbitraryValues(StatementsOf(store->Engine()), GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Page, StatementOnSqlite, ::testing::ValuesIn(AllStatements()),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace commtest
