#include "commands/operation_menus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;

class OperationMenus : public ::testing::Test {
  protected:
    std::vector<std::string> CaptionsOf(int menu) const {
        std::vector<std::string> captions;
        for (const MenuEntry& entry : EntriesOfMenu(form, menu)) captions.push_back(ToUtf8(entry.caption));
        return captions;
    }

    FormBench bench;
    MainForm& form = bench.form;
};

struct MenuOf {
    std::int16_t code;
    int menu;
};

TEST_F(OperationMenus, ProtocolBringsItsMenu) {
    for (const MenuOf& row :
         {MenuOf{11, 1}, MenuOf{12, 1}, MenuOf{13, 1}, MenuOf{21, 2}, MenuOf{22, 2}, MenuOf{23, 0},
          MenuOf{31, 2}, MenuOf{32, 2}, MenuOf{33, 3}, MenuOf{34, 2}, MenuOf{35, 2}, MenuOf{41, 2},
          MenuOf{42, 0}, MenuOf{51, 4}, MenuOf{0, 0}, MenuOf{14, 0}}) {
        form.ProtocolCode = row.code;
        EXPECT_EQ(MenuOfProtocol(form), row.menu) << row.code;
    }
}

TEST_F(OperationMenus, EntriesStandInTheirOrder) {
    EXPECT_THAT(CaptionsOf(1), ElementsAre("读取动态数据(RD)", "读取静态数据(RR)", "读取动/静态数据(RR/RD)",
                                           "", "读取本行(RE)", "逐个读取(RE)", "多个读取(RE)", "",
                                           "清除该列内容", "", "串口通讯仿真", "系统小工具(校验/浮点数)"));
    EXPECT_THAT(CaptionsOf(2), ElementsAre("逐个读取数据", "固定读取数据", "多个读取数据", "读取板卡类型",
                                           "通讯测试(固定)", "通讯测试(递增)", "", "清除该列内容", "",
                                           "串口通讯仿真", "系统小工具(校验/浮点数)"));
    EXPECT_THAT(CaptionsOf(3), ElementsAre("实时测量数据", "仪表组态数据", "", "历史数据", "", "清除该列内容",
                                           "", "串口通讯仿真", "系统小工具(校验/浮点数)"));
    EXPECT_THAT(CaptionsOf(4), ElementsAre("读时间值", "实时数据", "", "日累积值", "月累积值", "年累积值",
                                           "总累积值", "", "全部数据", "系统小工具(校验/浮点数)"));
    EXPECT_THAT(CaptionsOf(0), IsEmpty());
    EXPECT_THAT(CaptionsOf(5), IsEmpty());
}

TEST_F(OperationMenus, EntriesAreNumberedFromOneWithTheSeparators) {
    for (const int menu : {1, 2, 3, 4}) {
        int index = 0;
        for (const MenuEntry& entry : EntriesOfMenu(form, menu)) EXPECT_EQ(entry.index, ++index) << menu;
    }
}

TEST_F(OperationMenus, OnlyTheFixedReadOfCode41IsDisabled) {
    const std::int16_t codes[] = {11, 21, 31, 33, 35, 41, 51};
    for (const std::int16_t code : codes) {
        form.ProtocolCode = code;
        for (const int menu : {1, 2, 3, 4}) {
            for (const MenuEntry& entry : EntriesOfMenu(form, menu)) {
                const bool isFixedReadOf41 = code == 41 && menu == 2 && entry.index == 2;
                EXPECT_EQ(entry.enabled, !isFixedReadOf41) << code << " " << menu << " " << entry.index;
            }
        }
    }
}

// What an entry does: the command code that it sets (0: none), whether it empties the column, ticks the
// replay, opens the tools.
struct Effect {
    int menu;
    int entry;
    std::int32_t commandCode;
    bool clears;
    bool ticksReplay;
    bool opensTools;
};

const Effect kEffects[] = {
    {1, 1, 10, false, false, false}, {1, 2, 20, false, false, false}, {1, 3, 31, false, false, false},
    {1, 4, 0, false, false, false},  {1, 5, 40, false, false, false}, {1, 6, 50, false, false, false},
    {1, 7, 60, false, false, false}, {1, 8, 0, false, false, false},  {1, 9, 0, true, false, false},
    {1, 10, 0, false, false, false}, {1, 11, 0, false, true, false},  {1, 12, 0, false, false, true},
    {1, 13, 0, false, false, false}, {2, 1, 50, false, false, false}, {2, 2, 40, false, false, false},
    {2, 3, 60, false, false, false}, {2, 4, 80, false, false, false}, {2, 5, 90, false, false, false},
    {2, 6, 91, false, false, false}, {2, 7, 0, false, false, false},  {2, 8, 0, true, false, false},
    {2, 9, 0, false, false, false},  {2, 10, 0, false, true, false},  {2, 11, 0, false, false, true},
    {3, 1, 10, false, false, false}, {3, 2, 0, false, false, false},  {3, 3, 0, false, false, false},
    {3, 4, 0, false, false, false},  {3, 5, 0, false, false, false},  {3, 6, 0, true, false, false},
    {3, 7, 0, false, false, false},  {3, 8, 0, false, true, false},   {3, 9, 0, false, false, true},
    {4, 1, 10, false, false, false}, {4, 2, 0, false, false, false},  {4, 3, 0, false, false, false},
    {4, 4, 0, false, false, false},  {4, 5, 0, false, false, false},  {4, 6, 0, true, false, false},
    {4, 7, 0, false, false, false},  {4, 8, 0, false, true, false},   {4, 9, 0, false, false, true},
    {4, 10, 0, false, false, false}, {1, 0, 0, false, false, false},  {0, 1, 0, false, false, false},
};

TEST_F(OperationMenus, EntryActsByItsNumberAlsoInTheFlowMetersMenu) {
    for (const Effect& effect : kEffects) {
        SCOPED_TRACE(::testing::Message() << "menu " << effect.menu << " entry " << effect.entry);
        FormBench each;
        int toolWindows = 0;
        each.form.ToolWindowWanted = [&] { ++toolWindows; };
        each.form.CommandCode = 77;
        each.form.ParameterGrid().SetCell(8, 6, u"C800");
        each.form.ParameterGrid().Select(8, 6);
        ChooseMenuEntry(each.form, effect.menu, effect.entry);
        EXPECT_EQ(each.form.CommandCode, effect.commandCode == 0 ? 77 : effect.commandCode);
        EXPECT_EQ(each.form.ParameterGrid().Cell(8, 6).empty(), effect.clears);
        EXPECT_EQ(each.form.ConMyCommDriver.Value(), effect.ticksReplay);
        EXPECT_EQ(toolWindows, effect.opensTools ? 1 : 0);
    }
}

TEST_F(OperationMenus, ReplayThatIsTickedStaysTicked) {
    int clicks = 0;
    form.ConMyCommDriver.Click = [&] { ++clicks; };
    ChooseMenuEntry(form, 1, 11);
    ChooseMenuEntry(form, 1, 11);
    EXPECT_TRUE(form.ConMyCommDriver.Value());
    EXPECT_EQ(clicks, 1);
}

TEST_F(OperationMenus, EntryChosenUnderReplayOverwritesTheReplaysCommandCode) {
    form.CommandCode = 10031;
    ChooseMenuEntry(form, 1, 5);
    EXPECT_EQ(form.CommandCode, 40);
}

// --- The menu of each grid ---

std::vector<std::string> EntriesAsTexts(const MainForm& form, int grid) {
    std::vector<std::string> texts;
    for (const MenuEntry& entry : EntriesOfGrid(form, grid)) {
        texts.push_back(std::to_string(entry.index) + " " + ToUtf8(entry.caption) +
                        (entry.enabled ? "" : " disabled"));
    }
    return texts;
}

TEST_F(OperationMenus, ParameterGridBringsTheMenuOfTheProtocolInUse) {
    form.ProtocolCode = 33;
    EXPECT_THAT(EntriesAsTexts(form, 0),
                ElementsAre("1 实时测量数据", "2 仪表组态数据", "3 ", "4 历史数据", "5 ", "6 清除该列内容",
                            "7 ", "8 串口通讯仿真", "9 系统小工具(校验/浮点数)"));
    form.ProtocolCode = 41;
    EXPECT_THAT(EntriesAsTexts(form, 0),
                ElementsAre("1 逐个读取数据", "2 固定读取数据 disabled", "3 多个读取数据", "4 读取板卡类型",
                            "5 通讯测试(固定)", "6 通讯测试(递增)", "7 ", "8 清除该列内容", "9 ",
                            "10 串口通讯仿真", "11 系统小工具(校验/浮点数)"));
    const std::int16_t withoutMenu[] = {23, 42, 0};
    for (const std::int16_t code : withoutMenu) {
        form.ProtocolCode = code;
        EXPECT_THAT(EntriesAsTexts(form, 0), IsEmpty()) << code;
    }
}

TEST_F(OperationMenus, ListsBringTheirMenusUnderEveryProtocol) {
    const std::int16_t codes[] = {11, 41, 42, 0};
    for (const std::int16_t code : codes) {
        form.ProtocolCode = code;
        EXPECT_THAT(EntriesAsTexts(form, 1), ElementsAre("1 显示数据", "2 ", "3 刷新数据"));
        EXPECT_THAT(EntriesAsTexts(form, 2),
                    ElementsAre("1 更改名称", "2 更改说明", "3 ", "4 删除......", "5 ", "6 刷新......"));
        EXPECT_THAT(EntriesAsTexts(form, 3), IsEmpty());
    }
}

TEST_F(OperationMenus, EntryOfTheParameterGridIsOfTheProtocolsMenu) {
    struct Choice {
        std::int16_t protocol;
        int entry;
        std::int32_t commandCode;
    };
    for (const Choice& choice :
         {Choice{11, 5, 40}, Choice{31, 5, 90}, Choice{41, 1, 50}, Choice{33, 1, 10}, Choice{51, 1, 10},
          Choice{33, 2, 77}, Choice{42, 1, 77}, Choice{23, 1, 77}}) {
        form.ProtocolCode = choice.protocol;
        form.CommandCode = 77;
        ChooseGridMenuEntry(form, 0, choice.entry, 1);
        EXPECT_EQ(form.CommandCode, choice.commandCode) << choice.protocol << ' ' << choice.entry;
    }
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
}

class ListMenus : public OperationMenus {
  protected:
    ListMenus() {
        form.CommandCode = 77;
        form.SSTab2.Show(2);
        form.SSTab2.Click = [this](int tab) { tabs.push_back(tab); };
    }

    std::vector<int> tabs;  // shown anew
};

TEST_F(ListMenus, FirstEntryOfTheInstrumentListShowsTheChipFiles) {
    EXPECT_FALSE(form.ConCpuDataShow.Visible());
    ChooseGridMenuEntry(form, 1, 1, 4);
    EXPECT_TRUE(form.ConCpuDataShow.Visible());
    EXPECT_THAT(tabs, IsEmpty());
}

TEST_F(ListMenus, RefreshOfTheInstrumentListShowsItsPageAnew) {
    ChooseGridMenuEntry(form, 1, 3, 4);
    EXPECT_THAT(tabs, ElementsAre(2));
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
}

TEST_F(ListMenus, EntryOfTheRecordingsTakesTheRowUnderThePointerAndLeavesTheCurrentOne) {
    Grid& list = form.MSHFlexGrid1[2];
    list.SetSize(9, 4);
    list.Select(5, 1);
    list.SetCell(7, 2, u"仪表甲");
    list.SetCell(7, 3, u"说明");
    bench.dialogs.Answers = {u"no"};
    ChooseGridMenuEntry(form, 2, 4, 7);
    EXPECT_THAT(bench.dialogs.Texts(),
                ElementsAre("你确定要删除 仪表名称是 <仪表甲> ,说明是 <说明> 的演示数据吗？"));
    EXPECT_EQ(list.Row, 5);
}

TEST_F(ListMenus, SeparatorAndTheChipListChooseNothing) {
    ChooseGridMenuEntry(form, 1, 2, 1);
    EXPECT_FALSE(form.ConCpuDataShow.Visible());
    for (const int entry : {1, 3}) ChooseGridMenuEntry(form, 3, entry, 1);
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
    EXPECT_THAT(tabs, IsEmpty());
    EXPECT_EQ(form.CommandCode, 77);
}

// --- Clearing a column ---

struct Clearing {
    int column;
    bool clears;
};

TEST_F(OperationMenus, ColumnFiveAndBeyondIsEmptiedFromRowSixOn) {
    for (const Clearing& row : {Clearing{0, false}, Clearing{1, false}, Clearing{4, false}, Clearing{5, true},
                                Clearing{6, true}, Clearing{10, true}}) {
        SCOPED_TRACE(row.column);
        FormBench each;
        Grid& grid = each.form.ParameterGrid();
        for (int r = 0; r < 15; ++r) {
            for (int c = 0; c < 11; ++c) grid.SetCell(r, c, u"x");
        }
        grid.Redraw = false;
        grid.Select(2, row.column);
        ClearCurrentColumn(each.form);
        EXPECT_EQ(ToUtf8(grid.Cell(0, row.column)), "x");
        EXPECT_EQ(ToUtf8(grid.Cell(5, row.column)), "x");
        EXPECT_EQ(ToUtf8(grid.Cell(6, row.column)), row.clears ? "" : "x");
        EXPECT_EQ(ToUtf8(grid.Cell(14, row.column)), row.clears ? "" : "x");
        EXPECT_EQ(ToUtf8(grid.Cell(6, (row.column + 1) % 11)), "x");
        EXPECT_EQ(grid.Redraw, row.clears);
    }
}

}  // namespace
}  // namespace commtest
