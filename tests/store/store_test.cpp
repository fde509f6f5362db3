#include "host/store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/instrument_catalogue.h"
#include "runtime/runtime_error.h"
#include "support/statement_table.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::IsEmpty;
using testing::NamedStatement;
using ::testing::SizeIs;
using testing::StoreUnderTest;

class StoreTest : public ::testing::TestWithParam<StoreUnderTest> {
  protected:
    std::unique_ptr<Store> store = testing::MakeShippedCatalogue(GetParam());
};

TEST_P(StoreTest, ANullIsNothingWhateverItsType) {
    const StoreRows list = InstrumentCatalogue(*store).CatalogueList();
    const auto column = [&](const char16_t* name) { return static_cast<std::size_t>(list.ColumnOf(name)); };
    const auto row = std::find_if(list.rows.begin(), list.rows.end(), [&](const auto& each) {
        return each[column(u"仪表名称")] == u"HX-F40智能流量积算仪";  // which has no chip record
    });
    ASSERT_NE(row, list.rows.end());
    const auto at = [&](const char16_t* name) { return (*row)[column(name)]; };
    EXPECT_EQ(at(u"芯片ID"), std::nullopt);
    EXPECT_EQ(at(u"文件名"), std::nullopt);
    EXPECT_NE(at(u"仪表ID"), std::nullopt);
}

TEST_P(StoreTest, ANullGoesInAsNothingAndAnEmptyTextAsAnEmptyText) {
    store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"x'"), std::nullopt});
    store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"y"), Text()});
    const StoreRows rows = store->Query(u"SELECT 原字符,新字符 From 字符_替换 Where 原字符 In ('x''','y')");
    ASSERT_THAT(rows.rows, SizeIs(2));
    EXPECT_EQ(rows.rows[0][1], std::nullopt);
    EXPECT_EQ(rows.rows[1][1], Text());
}

TEST_P(StoreTest, NeighbouringRowsHaveValuesInCommonOrNot) {
    store->Execute(u"Delete From 字符_替换");
    const Text longText(100, u'长');
    const std::vector<std::vector<StoreValue>> rows = {{Text(u"a"), longText},   {Text(u"b"), longText},
                                                       {longText, std::nullopt}, {longText, std::nullopt},
                                                       {longText, Text()},       {std::nullopt, Text(u"b")},
                                                       {Text(u"a"), Text(u"b")}};
    for (const auto& row : rows) {
        std::vector<StoreValue> values = row;
        store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, values);
        for (StoreValue& value : values) value = Text(100, u'x');
    }
    EXPECT_EQ(store->Query(u"SELECT 原字符,新字符 From 字符_替换").rows, rows);
}

TEST_P(StoreTest, ARowOfOtherColumnsStandsInThem) {
    store->Execute(u"Delete From 字符_替换");
    store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"a"), Text(u"b")});
    store->AddRow(u"字符_替换", {u"新字符", u"原字符"}, {Text(u"a"), Text(u"b")});
    store->AddRow(u"仪表_类别", {u"类别", u"类别ID"}, {Text(u"a"), Text(u"90")});
    const StoreRows rows = store->Query(u"SELECT 原字符,新字符 From 字符_替换");
    EXPECT_EQ(rows.At(0, 0) + rows.At(0, 1), u"ab");
    EXPECT_EQ(rows.At(1, 0) + rows.At(1, 1), u"ba");
}

TEST_P(StoreTest, ClearingTheCatalogueTakesTheParametersAlong) {
    InstrumentCatalogue(*store).ClearCatalogue();
    EXPECT_THAT(InstrumentCatalogue(*store).AllParameters().rows, IsEmpty());
}

TEST_P(StoreTest, AFailedRowLeavesTheStoreUsable) {
    InstrumentCatalogue catalogue(*store);
    EXPECT_THROW(catalogue.AddClass(u"再来一次", 1), RuntimeError);
    EXPECT_THROW(store->AddRow(u"没有的表", {u"列"}, {Text(u"1")}), RuntimeError);
    catalogue.AddClass(u"新类别", 90);
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(8));
}

TEST_P(StoreTest, ARolledBackTransactionLeavesNothing) {
    InstrumentCatalogue catalogue(*store);
    store->BeginTransaction();
    catalogue.AddClass(u"新类别", 90);
    store->Rollback();
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(7));
    store->BeginTransaction();
    catalogue.AddClass(u"新类别", 90);
    store->Commit();
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(8));
}

TEST_P(StoreTest, RowsOfATransactionStandInTheirOrderWhateverTheirNumber) {
    InstrumentCatalogue catalogue(*store);
    catalogue.ClearCatalogue();
    store->BeginTransaction();
    int number = 0;
    for (int instrument = 1; instrument <= 30; ++instrument) {
        catalogue.AddInstrument({instrument, u"仪表", u"1100", u"A", u"11", u"类", std::nullopt});
        for (int row = 0; row < 83; ++row)
            catalogue.AddParameter(
                {++number, instrument, row % 2 ? u"奇'" : u"", u"01", u"2", u"R", u"0", u"", u""});
    }
    EXPECT_EQ(catalogue.Size().parameters, 2490) << "what is asked within sees them";
    store->Commit();
    const StoreRows rows = store->Query(
        u"SELECT ID,仪表ID,参数名称 From 仪表_参数 Where ID In (1,84,1000,1001,2490) Order By ID");
    const auto textOf = [&](std::size_t row) {
        return ToUtf8(rows.At(row, 0) + u"/" + rows.At(row, 1) + u"/" + rows.At(row, 2));
    };
    EXPECT_EQ(textOf(0), "1/1/");
    EXPECT_EQ(textOf(1), "84/2/");
    EXPECT_EQ(textOf(2), "1000/13/奇'");
    EXPECT_EQ(textOf(3), "1001/13/");
    EXPECT_EQ(textOf(4), "2490/30/");
}

TEST_P(StoreTest, ACursorGivesRowByRow) {
    store->Execute(u"Delete From 字符_替换");
    store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"温"), std::nullopt});
    store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"度"), Text()});
    const auto cursor = store->OpenCursor(u"SELECT 原字符,新字符 From 字符_替换 Order By 原字符 Desc");
    ASSERT_TRUE(cursor->Next());
    EXPECT_EQ(cursor->At(0), u"温");
    EXPECT_EQ(cursor->At(1), u"");
    EXPECT_EQ(cursor->ValueAt(1), std::nullopt);
    ASSERT_TRUE(cursor->Next());
    EXPECT_EQ(cursor->ValueAt(0), u"度");
    EXPECT_EQ(cursor->ValueAt(1), u"");
    EXPECT_FALSE(cursor->Next());
    EXPECT_FALSE(cursor->Next());
}

TEST_P(StoreTest, ACursorWithoutARowHasNone) {
    EXPECT_FALSE(store->OpenCursor(u"SELECT * From 仪表_参数 Where 1 = 0")->Next());
}

TEST_P(StoreTest, BoundValuesAreDataWhateverTheyHold) {
    store->Execute(u"INSERT INTO 字符_替换 (原字符,新字符) VALUES (?,?)",
                   {Text(u"x' OR '1'='1"), std::nullopt});
    const Text query = u"SELECT 原字符,新字符 FROM 字符_替换 WHERE 原字符 = ?";
    const StoreRows found = store->Query(query, {Text(u"x' OR '1'='1")});
    ASSERT_THAT(found.rows, SizeIs(1));
    EXPECT_EQ(found.At(0, 0), u"x' OR '1'='1");
    EXPECT_FALSE(found.rows[0][1].has_value());
    EXPECT_THAT(store->Query(query, {Text(u"x")}).rows, IsEmpty());
    EXPECT_THROW(store->Query(u"SELECT 原字符 FROM 字符_替换 WHERE nowhere = ?", {Text()}), RuntimeError);
}

// Chinese, what UTF-16 needs two units for, what code page 936 lacks, controls and blanks at both ends.
TEST_P(StoreTest, EveryTextComesBackAsItWentIn) {
    store->Execute(u"Delete From 字符_替换");
    const Text texts[] = {u"仪表",     u"𠮷😀",         u"㎡ ℃ € é",        u" 两端 ",
                          u"a\r\n\tb", u"'\"\\%_?:v0", Text(20000, u'长'), u""};
    for (const Text& text : texts) {
        store->AddRow(u"字符_替换", {u"原字符"}, {text});
        store->Execute(u"INSERT INTO 字符_替换 (原字符) VALUES (?)", {text});
    }
    const StoreRows rows = store->Query(u"SELECT 原字符 From 字符_替换");
    std::size_t row = 0;
    for (const Text& text : texts) {
        EXPECT_EQ(rows.rows.at(row++)[0], text) << ToUtf8(text);
        EXPECT_EQ(rows.rows.at(row++)[0], text) << ToUtf8(text);
    }
    EXPECT_THAT(store->Query(u"SELECT 原字符 From 字符_替换 Where 原字符 = '𠮷😀'").rows, SizeIs(2));
}

TEST_P(StoreTest, ANumberIsReadInDigitsAndANullIsNoZero) {
    store->AddRow(u"表格_设置", {u"使用", u"列号", u"宽度"}, {u"x", u"-12", std::nullopt});
    const StoreRows rows =
        store->Query(u"SELECT 列号,宽度,COUNT(*) From 表格_设置 Where 使用 = 'x' Group By 列号,宽度");
    EXPECT_EQ(rows.rows.at(0)[0], u"-12");
    EXPECT_EQ(rows.rows.at(0)[1], std::nullopt);
    EXPECT_EQ(rows.rows.at(0)[2], u"1");
}

TEST_P(StoreTest, AKeyOfItsOwnIsHandedOutByTheEngine) {
    testing::AddRecording(*store, u"A", u"X", u" 01");
    testing::AddRecording(*store, u"A", u"X", u" 02");
    const StoreRows keys = store->Query(u"SELECT ID From 通讯_仿真 Order By ID");
    EXPECT_EQ(keys.At(0, 0), u"1");
    EXPECT_EQ(keys.At(1, 0), u"2");
}

TEST_P(StoreTest, EveryStatementOfThePageRuns) {
    for (const NamedStatement& statement : testing::AllStatements()) {
        EXPECT_NO_THROW(
            store->Execute(testing::WithArbitraryValues(StatementsOf(store->Engine()), statement)))
            << statement.name;
    }
}

TEST_P(StoreTest, AFailedStatementEndsNoMoreThanItself) {
    EXPECT_THROW(InstrumentCatalogue(*store).ParametersOfInstrument(u"O'K"), RuntimeError);
    EXPECT_THAT(InstrumentCatalogue(*store).Classes().rows, SizeIs(7));
}

TEST_P(StoreTest, AFailedRowOfATransactionLeavesItToTheRollback) {
    InstrumentCatalogue catalogue(*store);
    store->BeginTransaction();
    catalogue.AddClass(u"新类别", 90);
    const auto addAgain = [&] {
        catalogue.AddClass(u"再来一次", 90);
        store->Commit();
    };
    EXPECT_THROW(addAgain(), RuntimeError);
    store->Rollback();
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(7));
    catalogue.AddClass(u"新类别", 90);
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(8));
}

INSTANTIATE_TEST_SUITE_P(Each, StoreTest, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
