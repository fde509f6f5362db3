#include "cli/table.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

Table SmallTable() {
    Table table;
    table.columns = {
        {u"row", u"序号", CellKind::Number}, {u"name", u"名称"}, {u"usable", u"可用", CellKind::YesNo}};
    table.rows = {{u"7", u"测量值", u"是"}, {u"11", u"a,\"b\"", u"否"}};
    return table;
}

Table TableOfOneCell(const Text& cell) {
    Table table;
    table.columns = {{u"cell", u"C"}};
    table.rows = {{cell}};
    return table;
}

TEST(Printed, PlainTextHasItsColumnsSideBySide) {
    EXPECT_EQ(Printed(SmallTable(), Format::Plain),
              "序号  名称    可用\n"
              "   7  测量值  是\n"
              "  11  a,\"b\"   否\n");
}

TEST(Printed, CsvQuotesWhatNeedsIt) {
    EXPECT_EQ(Printed(SmallTable(), Format::Csv),
              "row,name,usable\n"
              "7,测量值,是\n"
              "11,\"a,\"\"b\"\"\",否\n");
}

TEST(Printed, CsvKeepsEmptyCells) {
    Table table = SmallTable();
    table.rows = {{u"1", u"", u""}};
    EXPECT_EQ(Printed(table, Format::Csv), "row,name,usable\n1,,\n");
}

TEST(Printed, CsvKeepsAnEmptyFirstCell) {
    Table table = SmallTable();
    table.rows = {{u"", u"x", u""}};
    EXPECT_EQ(Printed(table, Format::Csv), "row,name,usable\n,x,\n");
}

TEST(Printed, JsonIsAnArrayOfObjects) {
    EXPECT_EQ(
        Printed(SmallTable(), Format::Json),
        "[\n"
        "    {\n        \"name\": \"测量值\",\n        \"row\": 7,\n        \"usable\": true\n    },\n"
        "    {\n        \"name\": \"a,\\\"b\\\"\",\n        \"row\": 11,\n        \"usable\": false\n    }\n"
        "]\n");
}

TEST(Printed, TableWithoutRowsHasItsHeadings) {
    Table table = SmallTable();
    table.rows.clear();
    EXPECT_EQ(Printed(table, Format::Plain), "序号  名称  可用\n");
    EXPECT_EQ(Printed(table, Format::Csv), "row,name,usable\n");
    EXPECT_EQ(Printed(table, Format::Json), "[\n]\n");
}

TEST(Printed, UndecidedReadingIsNullAndAnEmptyField) {
    Table table;
    table.columns = {{u"a", u"甲", CellKind::Reading}, {u"b", u"乙"}};
    table.rows = {{u"未定", u"未定"}};
    EXPECT_EQ(Printed(table, Format::Plain), "甲    乙\n未定  未定\n");
    EXPECT_EQ(Printed(table, Format::Csv), "a,b\n,未定\n");
    EXPECT_EQ(Printed(table, Format::Json),
              "[\n    {\n        \"a\": null,\n        \"b\": \"未定\"\n    }\n]\n");
}

TEST(Printed, NoControlCharacterComesThrough) {
    const Table table = TableOfOneCell(u"\x1B\u009B\x7F");
    EXPECT_EQ(Printed(table, Format::Plain), "C\n\\1B\\9B\\7F\n");
    EXPECT_EQ(Printed(table, Format::Csv), "cell\n\\1B\\9B\\7F\n");
    EXPECT_EQ(Printed(table, Format::Json),
              "[\n    {\n        \"cell\": \"\\u001B\\u009B\\u007F\"\n    }\n]\n");
}

TEST(Printed, LineEndInACellStaysInsideItsField) {
    const Table table = TableOfOneCell(u"a\r\nb");
    EXPECT_EQ(Printed(table, Format::Plain), "C\na b\n");
    EXPECT_EQ(Printed(table, Format::Csv), "cell\n\"a\nb\"\n");
}

}  // namespace

}  // namespace commtest
