#include "catalogue/chip_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/instrument_catalogue.h"
#include "runtime/runtime_error.h"
#include "support/form_bench.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::SizeIs;

class ChipRecords : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    ChipRecords() {
        AddInstrument(1, u"仪表甲", u"11000101", u"11");
        AddInstrument(2, u"仪表乙", u"31000102", u"31");
        AddChip(u"31000102", u"B.HEX", u"2026-03-12");
        AddChip(u"31000102", u"C.HEX", u"2026-06-02");
    }

    void AddInstrument(int id, const Text& name, const Text& code, const Text& sortKey) {
        InstrumentCatalogue(*bench.store)
            .AddInstrument({.id = id,
                            .name = name,
                            .code = code,
                            .protocol = u"TQ仪表协议",
                            .sortKey = sortKey,
                            .className = u"类别甲",
                            .classId = u"1"});
    }

    void AddChip(const Text& code, const StoreValue& file, const Text& day) {
        bench.store->AddRow(u"仪表_芯片", {u"编号", u"文件名", u"日期", u"实例", u"属性", u"功能简述"},
                            {code, file, day, Text(u"标准"), Text(u"量产"), Text(u"带报警。")});
    }

    std::vector<std::string> Fields() const {
        std::vector<std::string> fields;
        for (const ListControl& field : form.ConCpudataCombo) fields.push_back(ToUtf8(field.Value()));
        fields.push_back(ToUtf8(form.ConCpudataText.Value()));
        return fields;
    }

    std::vector<std::string> Line(int row) const {
        std::vector<std::string> cells;
        for (int col = 0; col < list.Cols(); ++col) cells.push_back(ToUtf8(list.Cell(row, col)));
        return cells;
    }

    void ShowRow(int row) {
        list.Select(row, 1);
        ShowChipRecord(form);
    }

    FormBench bench{Protocols(), kChineseFace, testing::MakeEmptyCatalogue(GetParam())};
    MainForm& form = bench.form;
    Grid& list = form.MSHFlexGrid1[3];
};

TEST_P(ChipRecords, PanelIsHiddenUntilItIsAskedFor) {
    EXPECT_FALSE(form.ConCpuDataShow.Visible());
    ShowChipFilePanel(form);
    EXPECT_TRUE(form.ConCpuDataShow.Visible());
}

TEST_P(ChipRecords, ListHasEveryInstrumentInTheOrderOfTheSortKeyAlsoOneWithoutARecord) {
    ShowChipFilePanel(form);
    ASSERT_EQ(list.Rows(), 4);
    EXPECT_THAT(Line(0), ElementsAre("序号", "协议", "类别", "仪表名称", "文件名", "日期", "功能简述", "实例",
                                     "属性", "编号", "仪表ID", "芯片ID"));
    EXPECT_THAT(Line(1), ElementsAre("001", "TQ仪表协议", "类别甲", "仪表甲", "", "", "", "", "", "11000101",
                                     "1", ""));
    EXPECT_THAT(Line(3), ElementsAre("003", "TQ仪表协议", "类别甲", "仪表乙", "C.HEX", "2026-06-02",
                                     "带报警。", "标准", "量产", "31000102", "2", "2"));
    EXPECT_TRUE(list.Redraw);
}

TEST_P(ChipRecords, OpeningShowsTheRecordOfRowOneAtOnce) {
    ShowChipFilePanel(form);
    ShowRow(3);
    bench.store->Execute(u"Delete From 仪表_名称 Where 仪表ID = 1");
    ShowChipFilePanel(form);
    EXPECT_EQ(list.Row, 1);
    EXPECT_THAT(Fields(),
                ElementsAre("仪表乙", "31000102", "B.HEX", "2026-03-12", "标准", "量产", "带报警。"));
}

TEST_P(ChipRecords, RecordIsThatOfTheRowsFile) {
    ShowChipFilePanel(form);
    ShowRow(3);
    EXPECT_THAT(Fields(),
                ElementsAre("仪表乙", "31000102", "C.HEX", "2026-06-02", "标准", "量产", "带报警。"));
    EXPECT_EQ(list.Row, 3);
}

TEST_P(ChipRecords, InstrumentWithoutARecordShowsItsNameAndCodeAndNoMore) {
    ShowChipFilePanel(form);
    ShowRow(3);
    ShowRow(1);
    EXPECT_THAT(Fields(), ElementsAre("仪表甲", "11000101", "", "", "", "", ""));
}

TEST_P(ChipRecords, RecordWhoseFileHasNoNameShowsNameAndCode) {
    AddChip(u"11000101", std::nullopt, u"2026-01-27");
    ShowChipFilePanel(form);
    EXPECT_THAT(Fields(), ElementsAre("仪表甲", "11000101", "", "", "", "", ""));
}

TEST_P(ChipRecords, FirstOfSeveralRecordsOfOneFileIsShown) {
    AddChip(u"31000102", u"B.HEX", u"2030-01-01");
    ShowChipFilePanel(form);
    ShowRow(2);
    EXPECT_EQ(ToUtf8(form.ConCpudataCombo[3].Value()), "2026-03-12");
}

TEST_P(ChipRecords, EmptyCatalogueOpensThePanelWithEmptyFields) {
    InstrumentCatalogue(*bench.store).ClearCatalogue();
    form.ConCpudataCombo[2].Set(u"旧的");
    ShowChipFilePanel(form);
    EXPECT_TRUE(form.ConCpuDataShow.Visible());
    EXPECT_EQ(list.Rows(), 0);
    EXPECT_THAT(Fields(), ElementsAre("", "", "", "", "", "", ""));
}

TEST_P(ChipRecords, QuoteInANameFailsWithTheEnginesText) {
    AddInstrument(3, u"O'K", u"51000101", u"51");
    ShowChipFilePanel(form);
    EXPECT_THROW(ShowRow(4), RuntimeError);
    EXPECT_TRUE(list.Redraw);
}

TEST_P(ChipRecords, OnlyTheLastButtonActsAndItHidesThePanel) {
    ShowChipFilePanel(form);
    ShowRow(2);
    for (const int button : {0, 1, 2}) {
        ConCpuDataCommand_Click(form, button);
        EXPECT_TRUE(form.ConCpuDataShow.Visible()) << button;
    }
    ConCpuDataCommand_Click(form, 3);
    EXPECT_FALSE(form.ConCpuDataShow.Visible());
}

TEST_P(ChipRecords, DeadButtonsChangeNothingInTheTable) {
    ShowChipFilePanel(form);
    ShowRow(2);
    form.ConCpudataCombo[2].Set(u"NEW.HEX");
    const auto before = bench.store->Query(u"SELECT * From 仪表_芯片").rows;
    for (const int button : {0, 1, 2}) ConCpuDataCommand_Click(form, button);
    EXPECT_EQ(bench.store->Query(u"SELECT * From 仪表_芯片").rows, before);
    EXPECT_THAT(before, SizeIs(2));
    EXPECT_EQ(ToUtf8(form.ConCpudataCombo[2].Value()), "NEW.HEX");
}

INSTANTIATE_TEST_SUITE_P(Each, ChipRecords, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
