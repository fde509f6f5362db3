#include "catalogue/catalogue_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/instrument_catalogue.h"
#include "support/error_of.h"
#include "support/form_bench.h"
#include "support/statement_table.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using testing::AddRecording;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FormBench;

class CatalogueLists : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    void AddSetting(const Text& use, const Text& number, const Text& field, const StoreValue& width,
                    const Text& merge = u"0", const Text& alignment = u"0") {
        bench.store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度", u"合并", u"对齐"},
                            {use, number, field, width, merge, alignment});
    }

    void AddInstrument(int id, const Text& name, const Text& code) {
        InstrumentRecord instrument;
        instrument.id = id;
        instrument.name = name;
        instrument.code = code;
        instrument.protocol = u"TQ仪表协议";
        instrument.className = u"类别甲";
        instrument.classId = u"1";
        InstrumentCatalogue(*bench.store).AddInstrument(instrument);
    }

    static std::vector<std::string> Line(const Grid& grid, int row) {
        std::vector<std::string> cells;
        for (int col = 0; col < grid.Cols(); ++col) cells.push_back(ToUtf8(grid.Cell(row, col)));
        return cells;
    }

    FormBench bench{Protocols(), kChineseFace, testing::MakeEmptyCatalogue(GetParam())};
    MainForm& form = bench.form;
};

TEST_P(CatalogueLists, ProtocolsStandInTheOrderOfTheirNumbersWithTrimmedNames) {
    AddSetting(u"协议规定", u"2", u" ModBus-RTU协议 ", u"31");
    AddSetting(u"协议规定", u"1", u"TQ仪表协议", u"11");
    AddSetting(u"数据类型", u"1", u"浮点数", u"7");
    LoadProtocolList(form);
    EXPECT_THAT(form.ConCommTypeList.Items(), ElementsAre(u"TQ仪表协议", u"ModBus-RTU协议"));
    EXPECT_THAT(form.ConMeterType.Captions, ElementsAre(u"TQ仪表协议", u"ModBus-RTU协议"));
    EXPECT_THAT(form.ProtocolCodeOfType, ElementsAre(11, 31));
}

TEST_P(CatalogueLists, ProtocolsInFrontOfACodeThatIsNoNumberAreLoaded) {
    AddSetting(u"协议规定", u"1", u"甲", u"11");
    // The columns of a server hold numbers only.
    const bool holdsTexts = GetParam().engine == StoreEngine::Sqlite;
    AddSetting(u"协议规定", u"2", u"乙", holdsTexts ? StoreValue(u"x") : std::nullopt);
    AddSetting(u"协议规定", u"3", u"丙", u"13");
    EXPECT_EQ(ErrorOf([&] { LoadProtocolList(form); }), 13);
    EXPECT_THAT(form.ConCommTypeList.Items(), ElementsAre(u"甲"));
    EXPECT_THAT(form.ConMeterType.Captions, ElementsAre(u"甲"));
    EXPECT_THAT(form.ProtocolCodeOfType, ElementsAre(11));
}

TEST_P(CatalogueLists, ProtocolsMayBeMoreThanTwelve) {
    for (int i = 1; i <= 20; ++i) {
        AddSetting(u"协议规定", FromUtf8(std::to_string(i)), u"协议", FromUtf8(std::to_string(10 + i)));
    }
    LoadProtocolList(form);
    EXPECT_EQ(form.ProtocolCodeOfType.size(), 20u);
    EXPECT_EQ(form.ProtocolCodeOfType.back(), 30);
}

TEST_P(CatalogueLists, DataTypesStandInTheOrderOfTheirNumbers) {
    AddSetting(u"数据类型", u"10", u"补码", u"0");
    AddSetting(u"数据类型", u"9", u" 原码 ", u"0");
    AddSetting(u"协议规定", u"1", u"TQ仪表协议", u"11");
    LoadDataTypes(form);
    EXPECT_THAT(form.ConDataTypeList.Items(), ElementsAre(u"原码", u"补码"));
}

TEST_P(CatalogueLists, GridLayoutSetsWidthMergeAlignmentAndHeadingByColumnNumber) {
    AddSetting(u"仪表通信", u"1", u"参数名称", u"3200", u"1", u"4");
    AddSetting(u"仪表通信", u"10", u"修改值", u"900", u"0", u"7");
    LoadGridLayout(form);
    const Grid& grid = form.ParameterGrid();
    EXPECT_EQ(grid.Column(1).width, 3200);
    EXPECT_EQ(grid.Column(1).merge, 1);
    EXPECT_EQ(grid.Column(1).alignment, 4);
    EXPECT_EQ(ToUtf8(grid.Cell(0, 1)), "参数名称");
    EXPECT_EQ(grid.Column(10).width, 900);
    EXPECT_EQ(grid.Column(10).alignment, 7);
    EXPECT_EQ(ToUtf8(grid.Cell(0, 10)), "修改值");
    EXPECT_EQ(grid.Column(2).width, 0);
    EXPECT_TRUE(grid.Column(1).isLaidOut);
    EXPECT_FALSE(grid.Column(2).isLaidOut);
}

TEST_P(CatalogueLists, GridLayoutOfAColumnThatTheGridLacksRaisesError9) {
    AddSetting(u"仪表通信", u"11", u"多余", u"900");
    EXPECT_EQ(ErrorOf([&] { LoadGridLayout(form); }), 9);
}

// --- The English face ---

class EnglishLists : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    void AddSetting(const Text& table, const Text& use, const Text& number, const Text& field,
                    const Text& width) {
        bench.store->AddRow(table, {u"使用", u"列号", u"字段", u"宽度", u"合并", u"对齐"},
                            {use, number, field, width, u"0", u"7"});
    }

    std::vector<std::string> Headings() const {
        std::vector<std::string> headings;
        for (int col = 0; col < grid.Cols(); ++col) headings.push_back(ToUtf8(grid.Cell(0, col)));
        return headings;
    }

    const Text kOwn = u"\"表格-设置\"";
    FormBench bench{Protocols(), kEnglishFace, testing::MakeEmptyCatalogue(GetParam())};
    MainForm& form = bench.form;
    Grid& grid = form.ParameterGrid();
};

TEST_P(EnglishLists, ProtocolsAndDataTypesAreThoseOfItsOwnTable) {
    AddSetting(u"表格_设置", u"协议规定", u"1", u"甲", u"11");
    AddSetting(u"表格_设置", u"数据类型", u"1", u"乙", u"0");
    AddSetting(kOwn, u"协议规定", u"1", u"丙", u"31");
    AddSetting(kOwn, u"数据类型", u"1", u"丁", u"0");
    LoadProtocolList(form);
    LoadDataTypes(form);
    EXPECT_THAT(form.ConCommTypeList.Items(), ElementsAre(u"丙"));
    EXPECT_THAT(form.ProtocolCodeOfType, ElementsAre(31));
    EXPECT_THAT(form.ConDataTypeList.Items(), ElementsAre(u"丁"));
}

TEST_P(EnglishLists, ColumnsSixToTenAreAsWideAsThoseOfTheChineseFaceUnderTheirOwnHeadings) {
    AddSetting(u"表格_设置", u"仪表通信", u"2", u"地址", u"701");
    AddSetting(u"表格_设置", u"仪表通信", u"6", u"RE 读值", u"1301");
    AddSetting(u"表格_设置", u"仪表通信", u"10", u"修改值", u"1201");
    AddSetting(kOwn, u"仪表通信", u"2", u"address", u"801");
    AddSetting(kOwn, u"仪表通信", u"6", u"single", u"99");
    LoadGridLayout(form);
    EXPECT_EQ(grid.Column(2).width, 801);
    EXPECT_EQ(grid.Column(6).width, 1301);
    EXPECT_EQ(grid.Column(10).width, 1201);
    EXPECT_EQ(grid.Column(10).alignment, 7);
    EXPECT_TRUE(grid.Column(10).isLaidOut);
    EXPECT_FALSE(grid.Column(7).isLaidOut);
    EXPECT_THAT(Headings(),
                ElementsAre("", "", "address", "", "", "", "RE 读值", "", "", "", "modified value"));
}

TEST_P(EnglishLists, CatalogueWithoutItsTableGivesTheShippedRowsAndStaysAsItIs) {
    bench.store->Execute(u"DROP TABLE \"表格-设置\"");
    AddSetting(u"表格_设置", u"仪表通信", u"9", u"小数点修正值", u"1401");
    const Text tables = GetParam().engine == StoreEngine::Sqlite
                            ? Text(u"SELECT name FROM sqlite_master")
                            : Text(u"SELECT table_name FROM information_schema.tables");
    const auto contents = [&] { return bench.store->Query(tables).rows; };
    const auto before = contents();
    LoadProtocolList(form);
    LoadDataTypes(form);
    LoadGridLayout(form);
    EXPECT_EQ(form.ConCommTypeList.Items().size(), 14U);
    EXPECT_EQ(ToUtf8(form.ConCommTypeList.At(0)), "TQ仪表协议");
    EXPECT_EQ(form.ProtocolCodeOfType.back(), 51);
    EXPECT_FALSE(form.ConDataTypeList.Items().empty());
    EXPECT_THAT(Headings(), ElementsAre("serial", "parameter name", "address", "length", "attribute", "Dec",
                                        "", "", "", "value2", ""));
    EXPECT_EQ(grid.Column(1).width, 3200);
    EXPECT_EQ(grid.Column(1).alignment, 1);
    EXPECT_EQ(grid.Column(9).width, 1401);
    EXPECT_EQ(contents(), before);
}

TEST_P(EnglishLists, OwnTableWithoutRowsGivesTheShippedOnesToo) {
    LoadProtocolList(form);
    EXPECT_EQ(form.ConCommTypeList.Items().size(), 14U);
    EXPECT_TRUE(bench.store->Query(u"SELECT * FROM \"表格-设置\"").rows.empty());
}

TEST_P(EnglishLists, CatalogueThatIsNotOpenGivesNoList) {
    bench.store->Close();
    EXPECT_NE(ErrorOf([&] { LoadProtocolList(form); }), 0);
    EXPECT_NE(ErrorOf([&] { LoadDataTypes(form); }), 0);
    EXPECT_NE(ErrorOf([&] { LoadGridLayout(form); }), 0);
    EXPECT_TRUE(form.ConCommTypeList.Items().empty());
}

TEST_P(CatalogueLists, FaceWhoseTableIsInEveryCatalogueTakesNoShippedRows) {
    LoadProtocolList(form);
    EXPECT_TRUE(form.ConCommTypeList.Items().empty());
}

TEST_P(CatalogueLists, TabTwoShowsTheInstrumentsWithNumberedRows) {
    AddInstrument(1, u"仪表乙", u"1102");
    AddInstrument(2, u"仪表甲", u"1101");
    form.SSTab2.Show(2);
    SSTab2_Click(form);
    const Grid& grid = form.MSHFlexGrid1[1];
    ASSERT_EQ(grid.Rows(), 3);
    EXPECT_THAT(Line(grid, 0), ElementsAre("序号", "协议", "类别", "仪表名称", "文件名", "日期", "功能简述",
                                           "实例", "属性", "编号", "仪表ID", "芯片ID"));
    EXPECT_THAT(Line(grid, 1),
                ElementsAre("001", "TQ仪表协议", "类别甲", "仪表甲", "", "", "", "", "", "1101", "2", ""));
    EXPECT_THAT(Line(grid, 2),
                ElementsAre("002", "TQ仪表协议", "类别甲", "仪表乙", "", "", "", "", "", "1102", "1", ""));
    EXPECT_TRUE(grid.Redraw);
}

TEST_P(CatalogueLists, TabThreeShowsTheRecordings) {
    AddRecording(*bench.store, u"仪表甲", u"说明乙", u" 40 0D");
    form.SSTab2.Show(3);
    SSTab2_Click(form);
    const Grid& grid = form.MSHFlexGrid1[2];
    ASSERT_EQ(grid.Rows(), 2);
    EXPECT_THAT(Line(grid, 0), ElementsAre("序号", "协议", "仪表名称", "说明", "采集日期"));
    EXPECT_THAT(Line(grid, 1), ElementsAre("001", "TQ仪表协议", "仪表甲", "说明乙", "2024-05-06"));
    EXPECT_EQ(form.MSHFlexGrid1[1].Rows(), 0);
}

// The embedded engine can be told to name the table.
TEST(ListOfATab, HasAColumnsNameForItsHeadingAlsoWhereTheEngineNamesItsTableToo) {
    FormBench bench;
    bench.store->Execute(u"PRAGMA short_column_names = OFF");
    bench.store->Execute(u"PRAGMA full_column_names = ON");
    InstrumentRecord instrument;
    instrument.id = 1;
    instrument.name = u"仪表甲";
    InstrumentCatalogue(*bench.store).AddInstrument(instrument);
    bench.form.SSTab2.Show(2);
    SSTab2_Click(bench.form);
    EXPECT_EQ(ToUtf8(bench.form.MSHFlexGrid1[1].Cell(0, 9)), "编号");
}

TEST_P(CatalogueLists, RowsBeyond999KeepTheirNumber) {
    for (int i = 1; i <= 1000; ++i)
        AddRecording(*bench.store, u"仪表甲", FromUtf8(std::to_string(i)), u" 40");
    form.SSTab2.Show(3);
    SSTab2_Click(form);
    EXPECT_EQ(ToUtf8(form.MSHFlexGrid1[2].Cell(1000, 0)), "1000");
}

TEST_P(CatalogueLists, ListThatIsEmptyLeavesItsGrid) {
    AddInstrument(1, u"仪表甲", u"1101");
    form.SSTab2.Show(2);
    SSTab2_Click(form);
    bench.store->Execute(u"Delete From 仪表_名称");
    SSTab2_Click(form);
    EXPECT_EQ(ToUtf8(form.MSHFlexGrid1[1].Cell(1, 3)), "仪表甲");
}

TEST_P(CatalogueLists, OtherTabsLoadNothing) {
    AddInstrument(1, u"仪表甲", u"1101");
    AddRecording(*bench.store, u"仪表甲", u"说明乙", u" 40 0D");
    for (const int tab : {0, 1, 4}) {
        form.SSTab2.Show(tab);
        SSTab2_Click(form);
        EXPECT_EQ(form.MSHFlexGrid1[1].Rows() + form.MSHFlexGrid1[2].Rows(), 0) << tab;
    }
}

INSTANTIATE_TEST_SUITE_P(Each, CatalogueLists, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

INSTANTIATE_TEST_SUITE_P(Each, EnglishLists, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
