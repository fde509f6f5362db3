#include "commands/operation_menus.h"

#include <array>

#include "catalogue/chip_records.h"
#include "replay/replay_script.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

using Action = void (*)(MainForm&);

struct Row {
    int index;
    TextView caption;
    std::int32_t commandCode = 0;  // what the entry sets CommandCode to; 0: it leaves it
    Action action = nullptr;
};

void TickReplay(MainForm& form) { form.ConMyCommDriver.Set(true); }
void OpenTools(MainForm& form) { RunIfSet(form.ToolWindowWanted); }

constexpr std::array<Row, 12> kNativeMenu = {{{1, u"读取动态数据(RD)", command::kReadDynamic},
                                              {2, u"读取静态数据(RR)", command::kReadStatic},
                                              {3, u"读取动/静态数据(RR/RD)", command::kReadDynamicTurn},
                                              {4, u""},
                                              {5, u"读取本行(RE)", command::kReadThisRow},
                                              {6, u"逐个读取(RE)", command::kReadRowByRow},
                                              {7, u"多个读取(RE)", command::kReadSeveralRows},
                                              {8, u""},
                                              {9, u"清除该列内容", 0, ClearCurrentColumn},
                                              {10, u""},
                                              {11, u"串口通讯仿真", 0, TickReplay},
                                              {12, u"系统小工具(校验/浮点数)", 0, OpenTools}}};

constexpr std::array<Row, 11> kModbusMenu = {{{1, u"逐个读取数据", command::kReadRowByRow},
                                              {2, u"固定读取数据", command::kReadThisRow},
                                              {3, u"多个读取数据", command::kReadSeveralRows},
                                              {4, u"读取板卡类型", command::kReadBoardType},
                                              {5, u"通讯测试(固定)", command::kTestFixedFrame},
                                              {6, u"通讯测试(递增)", command::kTestRisingFrame},
                                              {7, u""},
                                              {8, u"清除该列内容", 0, ClearCurrentColumn},
                                              {9, u""},
                                              {10, u"串口通讯仿真", 0, TickReplay},
                                              {11, u"系统小工具(校验/浮点数)", 0, OpenTools}}};

constexpr std::array<Row, 9> kRecorderMenu = {{{1, u"实时测量数据", command::kReadDynamic},
                                               {2, u"仪表组态数据"},
                                               {3, u""},
                                               {4, u"历史数据"},
                                               {5, u""},
                                               {6, u"清除该列内容", 0, ClearCurrentColumn},
                                               {7, u""},
                                               {8, u"串口通讯仿真", 0, TickReplay},
                                               {9, u"系统小工具(校验/浮点数)", 0, OpenTools}}};

// Q83: its entries act by the numbers of the recorder's menu, whatever their captions say.
constexpr std::array<Row, 10> kFlowMeterMenu = {{{1, u"读时间值", command::kReadDynamic},
                                                 {2, u"实时数据"},
                                                 {3, u""},
                                                 {4, u"日累积值"},
                                                 {5, u"月累积值"},
                                                 {6, u"年累积值", 0, ClearCurrentColumn},
                                                 {7, u"总累积值"},
                                                 {8, u"", 0, TickReplay},
                                                 {9, u"全部数据", 0, OpenTools},
                                                 {10, u"系统小工具(校验/浮点数)"}}};

constexpr std::array<MenuEntry, 3> kCatalogueMenu = {
    {{1, u"显示数据", true}, {2, u"", true}, {3, u"刷新数据", true}}};
constexpr std::array<MenuEntry, 6> kRecordingMenu = {{{1, u"更改名称", true},
                                                      {2, u"更改说明", true},
                                                      {3, u"", true},
                                                      {4, u"删除......", true},
                                                      {5, u"", true},
                                                      {6, u"刷新......", true}}};

// Shows the page once more, with the present rows of its list.
void RefreshPage(MainForm& form) { form.SSTab2.Choose(form.SSTab2.Chosen()); }

struct MenuRows {
    const Row* first = nullptr;
    const Row* last = nullptr;
    const Row* begin() const { return first; }
    const Row* end() const { return last; }
};

template <std::size_t N>
MenuRows RowsIn(const std::array<Row, N>& rows) {
    return {rows.data(), rows.data() + rows.size()};
}

MenuRows RowsOfMenu(int menu) {
    switch (menu) {
        case 1: return RowsIn(kNativeMenu);
        case 2: return RowsIn(kModbusMenu);
        case 3: return RowsIn(kRecorderMenu);
        case 4: return RowsIn(kFlowMeterMenu);
        default: return {};
    }
}

// Whether a write, a search or a replay goes on top of it or not; the turns of the alternating read are one
// operation.
bool IsInForce(const MainForm& form, const Row& row) {
    const std::int32_t plain = form.CommandCode % command::kWriteOffset;
    const bool alternates = plain == command::kReadAlternating || plain == command::kReadStaticTurn;
    return row.commandCode != 0 && row.commandCode == (alternates ? command::kReadDynamicTurn : plain);
}

}  // namespace

int MenuOfProtocol(const MainForm& form) { return static_cast<int>(form.ProtocolInUse().menu); }

std::vector<MenuEntry> EntriesOfMenu(const MainForm& form, int menu) {
    std::vector<MenuEntry> entries;
    for (const Row& row : RowsOfMenu(menu)) {
        const bool isFixedRead = menu == 2 && row.index == 2;
        entries.push_back({row.index, row.caption, !(isFixedRead && form.ProtocolCode == 41),
                           IsInForce(form, row), row.commandCode == command::kReadThisRow});
    }
    return entries;
}

TextView OperationInForce(const MainForm& form) {
    for (const Row& row : RowsOfMenu(MenuOfProtocol(form))) {
        if (IsInForce(form, row)) return row.caption;
    }
    return {};
}

void ChooseMenuEntry(MainForm& form, int menu, int index) {
    for (const Row& row : RowsOfMenu(menu)) {
        if (row.index != index) continue;
        if (row.commandCode != 0) form.CommandCode = row.commandCode;
        if (row.action != nullptr) row.action(form);
    }
}

std::vector<MenuEntry> EntriesOfGrid(const MainForm& form, int grid) {
    switch (grid) {
        case 0: return EntriesOfMenu(form, MenuOfProtocol(form));
        case 1: return {kCatalogueMenu.begin(), kCatalogueMenu.end()};
        case 2: return {kRecordingMenu.begin(), kRecordingMenu.end()};
        default: return {};
    }
}

void ChooseGridMenuEntry(MainForm& form, int grid, int index, int row) {
    if (grid == 0) ChooseMenuEntry(form, MenuOfProtocol(form), index);
    if (grid == 1 && index == 1) ShowChipFilePanel(form);
    if (grid == 1 && index == 3) RefreshPage(form);
    if (grid == 2) DemoData_Click(form, index, row);
}

void ClearCurrentColumn(MainForm& form) {
    // Q82: rows 1 to 5 hold commands, the columns below 5 the list.
    constexpr int kFirstRow = 6;
    constexpr int kFirstColumn = 5;
    Grid& grid = form.ParameterGrid();
    if (grid.Col < kFirstColumn) return;
    grid.Redraw = false;
    for (int row = kFirstRow; row < grid.Rows(); ++row) grid.SetCell(row, grid.Col, Text());
    grid.Redraw = true;
}

}  // namespace commtest
