#include "commands/list_clicks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;

// Of a recording whose instrument is not in the catalogue, as here where it is empty.
const std::string kUnknownInstrument = "仪表名称已经被改变,请右击鼠标,更改 仪表名称 ！";

// --- A click ---

class ListClicks : public ::testing::Test {
  protected:
    ListClicks() {
        for (const int grid : {1, 2, 3}) form.MSHFlexGrid1[static_cast<std::size_t>(grid)].SetSize(4, 5);
        form.ConCommTypeList.Click = [this] {
            clicks.push_back("protocol " + ToUtf8(form.ConCommTypeList.Value()));
        };
        form.ConMeterName[0].Click = [this] {
            clicks.push_back("instrument " + ToUtf8(form.ConMeterName[0].Value()));
        };
        form.SSTab2.Choose(2);
    }

    void Fill(std::size_t grid, int row, const Text& protocol, const Text& second, const Text& third) {
        Grid& list = form.MSHFlexGrid1[grid];
        list.SetCell(row, 1, protocol);
        list.SetCell(row, 2, second);
        list.SetCell(row, 3, third);
        list.Select(row, 2);
    }

    FormBench bench;
    MainForm& form = bench.form;
    std::vector<std::string> clicks;
};

TEST_F(ListClicks, RowOfTheInstrumentListChoosesProtocolAndInstrument) {
    Fill(1, 3, u"TQ仪表协议", u"类别", u"仪表甲");
    MSHFlexGrid1_Click(form, 1);
    EXPECT_THAT(clicks, ElementsAre("protocol TQ仪表协议", "instrument 仪表甲"));
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    EXPECT_TRUE(form.MSHFlexGrid1[1].Redraw);
}

TEST_F(ListClicks, WhatIsChosenAlreadyIsNotChosenAgain) {
    form.ConCommTypeList.Set(u"TQ仪表协议");
    form.ConMeterName[0].Set(u"仪表甲");
    Fill(1, 3, u"TQ仪表协议", u"类别", u"仪表甲");
    MSHFlexGrid1_Click(form, 1);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    Fill(1, 2, u"TQ仪表协议", u"类别", u"仪表乙");
    MSHFlexGrid1_Click(form, 1);
    EXPECT_THAT(clicks, ElementsAre("instrument 仪表乙"));
}

TEST_F(ListClicks, InstrumentThatItsProtocolBringsFirstIsNotChosenTwice) {
    form.ConCommTypeList.Click = [this] {
        clicks.push_back("protocol");
        form.ConMeterName[0].Set(u"仪表甲");
    };
    Fill(1, 1, u"TQ仪表协议", u"类别", u"仪表甲");
    MSHFlexGrid1_Click(form, 1);
    EXPECT_THAT(clicks, ElementsAre("protocol"));
}

TEST_F(ListClicks, RowOfTheRecordingsChoosesItsProtocolAlwaysAndAsksForTheRecording) {
    form.ConCommTypeList.Set(u"TQ仪表协议");
    Fill(2, 2, u"TQ仪表协议", u"仪表甲", u"说明");
    MSHFlexGrid1_Click(form, 2);
    EXPECT_THAT(clicks, ElementsAre("protocol TQ仪表协议"));
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre(kUnknownInstrument));
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
}

TEST_F(ListClicks, RowOfTheChipListAsksForItsRecord) {
    Grid& chips = form.MSHFlexGrid1[3];
    chips.SetSize(4, 12);
    chips.SetCell(3, 3, u"仪表甲");
    chips.SetCell(3, 9, u"11000101");
    chips.Select(3, 1);
    MSHFlexGrid1_Click(form, 3);
    EXPECT_EQ(ToUtf8(form.ConCpudataCombo[0].Value()), "仪表甲");
    EXPECT_EQ(ToUtf8(form.ConCpudataCombo[1].Value()), "11000101");
    EXPECT_EQ(chips.Row, 3);
    EXPECT_TRUE(chips.Redraw);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(form.SSTab2.Chosen(), 2);
}

// --- A double click ---

TEST_F(ListClicks, DoubleClickOnTheInstrumentListChoosesAgainWhatIsChosenAndTakesTheFocus) {
    form.ConMeterName[0].Click = [this] {
        clicks.push_back("instrument " + ToUtf8(form.ConMeterName[0].Value()));
        form.Focus.Ask(FocusWish::Target::ParameterGrid);
    };
    form.ConCommTypeList.Set(u"TQ仪表协议");
    form.ConMeterName[0].Set(u"仪表甲");
    Fill(1, 3, u"TQ仪表协议", u"类别", u"仪表甲");
    MSHFlexGrid1_DblClick(form, 1);
    EXPECT_THAT(clicks, ElementsAre("protocol TQ仪表协议", "instrument 仪表甲"));
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::CatalogueGrid);
    EXPECT_EQ(form.SSTab2.Chosen(), 2);
}

TEST_F(ListClicks, DoubleClickChoosesTheRowsInstrumentWhateverItsProtocolBrought) {
    form.ConCommTypeList.Click = [this] { form.ConMeterName[0].Set(u"仪表甲"); };
    Fill(1, 1, u"TQ仪表协议", u"类别", u"仪表乙");
    MSHFlexGrid1_DblClick(form, 1);
    EXPECT_THAT(clicks, ElementsAre("instrument 仪表乙"));
}

TEST_F(ListClicks, DoubleClickOnTheRecordingsAsksForTheRecordingAgain) {
    form.ConCommTypeList.Set(u"TQ仪表协议");
    Fill(2, 2, u"TQ仪表协议", u"仪表甲", u"说明");
    MSHFlexGrid1_DblClick(form, 2);
    EXPECT_THAT(clicks, ElementsAre("protocol TQ仪表协议"));
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre(kUnknownInstrument));
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::None);
    EXPECT_EQ(form.SSTab2.Chosen(), 2);
}

TEST_F(ListClicks, DoubleClickOnAnotherGridDoesNothing) {
    form.ParameterGrid().SetCell(1, 4, u"RW");
    form.ParameterGrid().Select(1, 10);
    for (const int grid : {0, 3}) MSHFlexGrid1_DblClick(form, grid);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_FALSE(form.InputText.Visible());
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::None);
}

}  // namespace
}  // namespace commtest
