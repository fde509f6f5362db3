#include "catalogue/table_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "catalogue/catalogue_schema.h"
#include "catalogue/csv_lines.h"
#include "catalogue/statements.h"
#include "runtime/code_page.h"
#include "runtime/runtime_error.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = TableFinding::Kind;

std::vector<std::vector<StoreValue>> LinesOf(TextView text) {
    CsvReader reader(text);
    std::vector<std::vector<StoreValue>> lines;
    while (const auto fields = reader.Next()) lines.push_back(*fields);
    return lines;
}

using Fields = std::vector<StoreValue>;

TEST(CsvReader, FieldsStandBetweenCommasWithOrWithoutQuotes) {
    EXPECT_THAT(LinesOf(u"a,\"b\",\"c,d\"\n1,\"say \"\"x\"\"\",中\r\n"),
                ElementsAre(Fields{u"a", u"b", u"c,d"}, Fields{u"1", u"say \"x\"", u"中"}));
}

TEST(CsvReader, NothingIsANullAndTwoQuotesAreAnEmptyText) {
    EXPECT_THAT(LinesOf(u",\"\",\n"), ElementsAre(Fields{std::nullopt, Text(), std::nullopt}));
}

TEST(CsvReader, ALineEndInQuotesBelongsToTheField) {
    CsvReader reader(u"\"a\nb\",c\n\n\"d\"");
    EXPECT_EQ(reader.Next(), (Fields{u"a\nb", u"c"}));
    EXPECT_EQ(reader.Line(), 1);
    EXPECT_EQ(reader.Next(), (Fields{u"d"}));
    EXPECT_EQ(reader.Line(), 4);
    EXPECT_TRUE(reader.IsWhole());
    EXPECT_EQ(reader.Next(), std::nullopt);
}

TEST(CsvReader, AQuoteThatIsNotClosedTakesTheRest) {
    CsvReader reader(u"a,\"b\nc,d");
    reader.Next();
    EXPECT_FALSE(reader.IsWhole());
    EXPECT_EQ(reader.Next(), std::nullopt);
}

TEST(CsvLine, NumbersStandBareAndTextsInQuotes) {
    EXPECT_EQ(ToUtf8(CsvLineOf({u"7", u"a\"b", std::nullopt, u"", u"x"},
                               {u"仪表ID", u"名", u"名", u"名", u"类别ID"})),
              "7,\"a\"\"b\",,\"\",\"x\"");
}

class TableFiles : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    std::vector<TableSize> Load() {
        const auto file = [this](const Text& table) -> std::optional<std::string> {
            const auto found = files.find(ToUtf8(table));
            return found == files.end() ? std::nullopt : std::optional(found->second);
        };
        return LoadTables(
            *store, file, [this](const TableFinding& finding) { findings.push_back(finding); },
            [this](const Text& table, int rows) { told.push_back(ToUtf8(table) + std::to_string(rows)); });
    }

    // What was found of one file, but for columns that it does not have.
    std::vector<TableFinding> FindingsOf(const Text& table) const {
        std::vector<TableFinding> own;
        for (const TableFinding& one : findings)
            if (one.table == table && one.kind != Kind::MissingColumn) own.push_back(one);
        return own;
    }

    std::string Dumped(const Text& table) const {
        std::string bytes;
        DumpTable(*store, table, [&bytes](const std::string& piece) { bytes += piece; });
        return bytes;
    }

    std::unique_ptr<Store> store = GetParam().makeBare();
    std::map<std::string, std::string> files;
    std::vector<TableFinding> findings;
    std::vector<std::string> told;
};

TEST_P(TableFiles, ColumnsOfATableAreThoseOfTheStore) {
    CreateCatalogueTables(*store);
    for (const Text& table : TablesToFill()) {
        const std::vector<Text> columns =
            store->Query(u"SELECT * From " + NameInStatement(store->Engine(), table) + u" Where 1 = 0")
                .columns;
        ASSERT_EQ(columns.size(), ColumnsOfTable(table).size());
        for (std::size_t i = 0; i < columns.size(); ++i)
            EXPECT_TRUE(IsSameColumn(columns[i], ColumnsOfTable(table)[i])) << ToUtf8(columns[i]);
    }
}

TEST_P(TableFiles, ATableComesBackAsItWentInWhateverItsTexts) {
    const std::string instruments =
        "\"仪表ID\",\"仪表名称\",\"编号\",\"协议\",\"编码\",\"类别\",\"类别ID\"\n"
        "1,\"𠮷,\"\"甲\"\"\",,\"\",\" 两端 \",\"行\n二\",\n"
        "20,\"\",\"11000101\",\"TQ\",\"11\",\"A\",-3\n";
    files["仪表_名称"] = instruments;
    Load();
    EXPECT_THAT(FindingsOf(u"仪表_名称"), IsEmpty());
    EXPECT_EQ(Dumped(u"仪表_名称"), instruments);
    EXPECT_EQ(Dumped(u"字符_替换"), "\"原字符\",\"新字符\"\n");
}

TEST_P(TableFiles, EachRowIsToldAsItComes) {
    files["仪表_类别"] = "类别ID,类别\n1,A\nx,B\n2,C\n";
    files["字符_替换"] = "原字符\na\n";
    Load();
    EXPECT_THAT(told, ElementsAre("仪表_类别1", "仪表_类别2", "字符_替换1"));
}

TEST_P(TableFiles, AFileOfTheCodePageIsRead) {
    files["仪表_类别"] = ToCodePage(u"类别ID,类别\r\n3,数显表\r\n");
    Load();
    EXPECT_EQ(Dumped(u"仪表_类别"), "\"类别\",\"类别ID\"\n\"数显表\",3\n");
}

TEST_P(TableFiles, ColumnsAreFoundByTheirNames) {
    files["字符_替换"] = "新字符,多余,原字符\nb,x,a\n";
    Load();
    EXPECT_EQ(Dumped(u"字符_替换"), "\"原字符\",\"新字符\"\n\"a\",\"b\"\n");
    EXPECT_THAT(FindingsOf(u"字符_替换"),
                ElementsAre(TableFinding{Kind::UnknownColumn, u"字符_替换", 1, u"多余", u""}));
}

TEST_P(TableFiles, KeysThatAreNoneOrTwiceAreLeftOut) {
    files["仪表_类别"] = "类别ID,类别\n1,A\n1.0E+00,B\n,C\nx,D\n2.5,E\n 2 ,F\n";
    Load();
    EXPECT_THAT(FindingsOf(u"仪表_类别"),
                ElementsAre(TableFinding{Kind::KeyTwice, u"仪表_类别", 3, u"类别ID", u"1"},
                            TableFinding{Kind::KeyIsNoNumber, u"仪表_类别", 4, u"类别ID", u""},
                            TableFinding{Kind::KeyIsNoNumber, u"仪表_类别", 5, u"类别ID", u"x"},
                            TableFinding{Kind::KeyIsNoNumber, u"仪表_类别", 6, u"类别ID", u"2.5"}));
    EXPECT_EQ(Dumped(u"仪表_类别"), "\"类别\",\"类别ID\"\n\"A\",1\n\"F\",2\n");
}

TEST_P(TableFiles, AParameterOfNoInstrumentIsLeftOut) {
    files["仪表_名称"] = "仪表ID\n1\n";
    files["仪表_参数"] = "ID,仪表ID,参数名称\n1,1,A\n2,2,B\n3,,C\n4,1,D\n";
    const std::vector<TableSize> sizes = Load();
    EXPECT_THAT(FindingsOf(u"仪表_参数"),
                ElementsAre(TableFinding{Kind::NoInstrument, u"仪表_参数", 3, u"仪表ID", u"2"},
                            TableFinding{Kind::NoInstrument, u"仪表_参数", 4, u"仪表ID", u""}));
    EXPECT_EQ(sizes[2].rows, 2);
    EXPECT_EQ(ToUtf8(sizes[2].table), "仪表_参数");
}

TEST_P(TableFiles, AValueThatIsNoNumberIsANullAndTold) {
    files["表格_设置"] = "使用,列号,宽度\n仪表通信,1,abc\n仪表通信,2,\"\"\n";
    Load();
    EXPECT_THAT(FindingsOf(u"表格_设置"),
                ElementsAre(TableFinding{Kind::NoNumber, u"表格_设置", 2, u"宽度", u"abc"}));
    EXPECT_EQ(store->Query(u"SELECT 宽度 From 表格_设置").rows,
              (std::vector<Fields>(2, Fields{std::nullopt})));
}

TEST_P(TableFiles, RowsThatAreNotWholeAreLeftOut) {
    files["字符_替换"] = "原字符,新字符\na,b,c\na\nd,e\n\"f,g\n";
    Load();
    EXPECT_THAT(FindingsOf(u"字符_替换"),
                ElementsAre(TableFinding{Kind::FieldCount, u"字符_替换", 2, u"", u""},
                            TableFinding{Kind::FieldCount, u"字符_替换", 3, u"", u""},
                            TableFinding{Kind::OpenQuote, u"字符_替换", 5, u"", u""}));
    EXPECT_EQ(Dumped(u"字符_替换"), "\"原字符\",\"新字符\"\n\"d\",\"e\"\n");
}

TEST_P(TableFiles, WhatIsMissingIsTold) {
    files["字符_替换"] = "";
    files["仪表_参数"] = "参数名称,仪表ID\nA,1\n";
    files["仪表_类别"] = "类别ID\n1\n";
    Load();
    EXPECT_THAT(FindingsOf(u"字符_替换"),
                ElementsAre(TableFinding{Kind::NoHeading, u"字符_替换", 0, u"", u""}));
    EXPECT_THAT(FindingsOf(u"仪表_参数"),
                ElementsAre(TableFinding{Kind::NoKeyColumn, u"仪表_参数", 1, u"ID", u""}));
    EXPECT_THAT(FindingsOf(u"通讯_仿真"), ElementsAre(TableFinding{Kind::NoFile, u"通讯_仿真", 0, u"", u""}));
    EXPECT_EQ(findings.front(), (TableFinding{Kind::MissingColumn, u"仪表_类别", 1, u"类别", u""}));
}

TEST_P(TableFiles, TheStoresOwnKeysStandBehindThoseOfTheFile) {
    files["通讯_仿真"] = "ID,仪表名称\n41,A\n";
    Load();
    store->AddRow(u"通讯_仿真", {u"仪表名称"}, {u"B"});
    EXPECT_EQ(store->Query(u"SELECT ID From 通讯_仿真 Where 仪表名称 = 'B'").At(0, 0), u"42");
    EXPECT_EQ(store->Query(u"SELECT 有效 From 通讯_仿真 Where 仪表名称 = 'A'").At(0, 0), u"1");
}

INSTANTIATE_TEST_SUITE_P(Each, TableFiles, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
