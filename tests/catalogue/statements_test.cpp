#include "catalogue/statements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/sqlite_store.h"
#include "support/statement_table.h"

namespace commtest {
namespace {

using testing::AllStatements;
using ::testing::ElementsAre;
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

// Where a page differs from that of the embedded engine, but for the nulls of one of them.
std::vector<std::string> DifferencesOf(StoreEngine engine, const std::string& nulls) {
    std::vector<std::string> differences;
    for (const NamedStatement& statement : AllStatements()) {
        std::string text = TextOf(engine, statement.text);
        for (auto place = text.find(nulls); !nulls.empty() && place != std::string::npos;
             place = text.find(nulls))
            text.erase(place, nulls.size());
        if (text != TextOf(StoreEngine::Sqlite, statement.text)) differences.push_back(statement.name);
    }
    return differences;
}

TEST(Statements, TheServersDifferInHowTheyBreakTiesAndJoinTextsOnly) {
    EXPECT_THAT(DifferencesOf(StoreEngine::SqlServer, ""),
                ElementsAre("instrumentsOfProtocol", "parametersLengthInFront", "instrumentsByCode",
                            "catalogueList", "chipList", "chipRecord"));
    EXPECT_THAT(
        DifferencesOf(StoreEngine::PostgreSql, " NULLS FIRST"),
        ElementsAre("instrumentsOfProtocol", "instrumentsByCode", "catalogueList", "chipList", "chipRecord"));
}

TEST(Statements, NullsComeFirstWhicheverTheEngine) {
    EXPECT_EQ(TextOf(StoreEngine::PostgreSql, &Statements::exportRows),
              "SELECT 参数名称,合成地址,长度,小数点,属性,下限值,上限值,仪表名称,编号 From 仪表参数 Order By "
              "排序 NULLS FIRST,仪表ID NULLS FIRST,ID NULLS FIRST");
    EXPECT_EQ(TextOf(StoreEngine::PostgreSql, &Statements::replacements),
              "SELECT 原字符,新字符 From 字符_替换");
    EXPECT_EQ(TextOf(StoreEngine::SqlServer, &Statements::exportRows),
              TextOf(StoreEngine::Sqlite, &Statements::exportRows));
}

TEST(Statements, LengthAndAddressAreJoinedInTheWordsOfTheEngine) {
    EXPECT_EQ(ToUtf8(LengthInFrontOfAddress(StoreEngine::Sqlite)), "COALESCE(长度,'') || COALESCE(地址,'')");
    EXPECT_EQ(ToUtf8(LengthInFrontOfAddress(StoreEngine::PostgreSql)),
              "COALESCE(长度,'') || COALESCE(地址,'')");
    EXPECT_EQ(ToUtf8(LengthInFrontOfAddress(StoreEngine::SqlServer)),
              "COALESCE(长度,'') + COALESCE(地址,'')");
    EXPECT_EQ(
        TextOf(StoreEngine::Sqlite, &Statements::parametersLengthInFront),
        "SELECT 参数名称,COALESCE(长度,'') || COALESCE(地址,'') As 参数地址,小数点,属性,下限值,上限值 From  "
        "仪表_名称 INNER JOIN 仪表_参数 ON 仪表_名称.仪表ID = 仪表_参数.仪表ID  Where  仪表名称 = '?' "
        "ORDER BY ID");
}

TEST(Statements, SettingsTableWithAHyphenIsQuotedAsTheEngineWantsIt) {
    const auto text = [](StoreEngine engine, TextView table, Text Statements::*statement) {
        return ToUtf8(StatementWith(StatementsOf(engine).*statement, {NameInStatement(engine, table)}));
    };
    const Text hyphened = u"表格-设置";
    EXPECT_EQ(text(StoreEngine::Sqlite, hyphened, &Statements::protocolList),
              "SELECT 字段,宽度 From \"表格-设置\" Where 使用 ='协议规定' Order By 列号");
    EXPECT_EQ(text(StoreEngine::PostgreSql, hyphened, &Statements::dataTypeList),
              "SELECT 字段 FROM \"表格-设置\" Where 使用 ='数据类型' Order By 列号 NULLS FIRST");
    EXPECT_EQ(text(StoreEngine::SqlServer, hyphened, &Statements::gridLayout),
              "SELECT * From [表格-设置] Where 使用 ='仪表通信' Order By 列号");
    for (const StoreEngine engine : {StoreEngine::Sqlite, StoreEngine::SqlServer}) {
        EXPECT_EQ(text(engine, u"表格_设置", &Statements::gridLayout),
                  "SELECT * From 表格_设置 Where 使用 ='仪表通信' Order By 列号");
    }
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
