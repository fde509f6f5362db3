// data/lists, which a user imports and takes as a pattern.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "catalogue/channel_table.h"
#include "catalogue/list_check.h"
#include "catalogue/parameter_list_import.h"
#include "list_bench.h"
#include "runtime/code_page.h"
#include "support/sqlite_store.h"

namespace commtest {
namespace {

using testing::BytesOfText;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

std::unique_ptr<ByteReader> Shipped(const std::string& name) {
    std::ifstream file(LISTS_FOLDER "/" + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return std::make_unique<BytesOfText>(
        std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
}

// The rows of instruments with their parameters, but their numbers, in order.
std::vector<std::string> RowsWithoutNumbers(Store& store, const Text& condition) {
    return testing::ListBench::Lines(store.Query(
        u"SELECT 仪表名称,编号,协议,编码,类别,类别ID,参数名称,地址,长度,属性,小数点,下限值,上限值 FROM "
        u"仪表_名称 INNER "
        u"JOIN 仪表_参数 ON 仪表_名称.仪表ID = 仪表_参数.仪表ID WHERE " +
        condition + u" ORDER BY ID"));
}

TEST(ShippedList, GivesTheShippedInstrumentsButTheOneWhoseAddressesBeginWithTheirLength) {
    const auto store = testing::MakeShippedCatalogue();
    const auto shipped = RowsWithoutNumbers(*store, u"编码 <> '12'");
    ParameterListImport import(*store, Shipped("TQ.ini"));
    while (import.Step()) {
    }
    import.Commit();
    EXPECT_EQ(ToUtf8(import.Message()), "数据库重置完毕！");
    EXPECT_THAT(RowsWithoutNumbers(*store, u"1 = 1"), ElementsAreArray(shipped));
    EXPECT_GT(shipped.size(), 700U);
}

TEST(ShippedList, HasNoFindings) {
    const auto store = testing::MakeShippedCatalogue();
    std::vector<std::string> findings;
    ListCheck check(InstrumentCatalogue(*store), Shipped("TQ.ini"), [&](const ListFinding& finding) {
        findings.push_back(std::to_string(finding.line) + " " + ToUtf8(finding.name));
    });
    while (check.Step()) {
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(ShippedTemplate, GivesThirtyTwoChannelsWithADecimalPointEach) {
    ListLines lines(Shipped("TQP.Dev"));
    const ChannelTable table = ChannelTableOf(lines);
    EXPECT_EQ(table.rows, 5);
    EXPECT_THAT(table.lossyLines, IsEmpty());
    const Text text = FromCodePage(table.bytes);
    EXPECT_TRUE(Contains(text, u"通道02测量值"));
    EXPECT_TRUE(Contains(text, u"2107 106     R")) << ToUtf8(text);
}

}  // namespace
}  // namespace commtest
