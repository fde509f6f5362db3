#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

#include "window/grid_view_bench.h"
#include "window/operation_message.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Entries = std::vector<std::string>;  // "-" a separator, "(...)" one that cannot be chosen

class GridMenuTest : public GridViewTest {
  protected:
    QMenu* AskMenu(GridView& asked, QPoint place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, asked.viewport()->mapToGlobal(place));
        QApplication::sendEvent(asked.viewport(), &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    QMenu* AskMenu(int row = 2, int col = 1) { return AskMenu(*view, Place(row, col)); }

    static Entries EntriesOf(QMenu* menu) {
        Entries entries;
        if (menu == nullptr) return entries;
        for (const QAction* action : menu->actions()) {
            const std::string caption = action->text().toStdString();
            if (action->isSeparator()) {
                entries.push_back("-");
            } else {
                entries.push_back(action->isEnabled() ? caption : "(" + caption + ")");
            }
        }
        menu->close();
        return entries;
    }

    void Choose(QMenu* menu, const QString& caption) {
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text() == caption) action->trigger();
        }
        menu->close();
    }
};

TEST_F(GridMenuTest, NativeProtocolsBringTheirReads) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{11, 12, 13}) {
        form.ProtocolCode = code;
        EXPECT_THAT(EntriesOf(AskMenu()),
                    ElementsAre("读取动态数据(RD)", "读取静态数据(RR)", "读取动/静态数据(RR/RD)", "-",
                                "读取本行(RE)", "逐个读取(RE)", "多个读取(RE)", "-", "清除该列内容", "-",
                                "串口通讯仿真", "系统小工具(校验/浮点数)"))
            << code;
    }
}

TEST_F(GridMenuTest, ModbusProtocolsBringTheirsAndCode41LacksTheFixedRead) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{21, 22, 31, 32, 34, 35, 41}) {
        form.ProtocolCode = code;
        EXPECT_THAT(EntriesOf(AskMenu()),
                    ElementsAre("逐个读取数据", code == 41 ? "(固定读取数据)" : "固定读取数据",
                                "多个读取数据", "读取板卡类型", "通讯测试(固定)", "通讯测试(递增)", "-",
                                "清除该列内容", "-", "串口通讯仿真", "系统小工具(校验/浮点数)"))
            << code;
    }
}

TEST_F(GridMenuTest, RecorderAndFlowMeterBringTheirs) {
    form.ProtocolCode = 33;
    EXPECT_THAT(EntriesOf(AskMenu()),
                ElementsAre("实时测量数据", "仪表组态数据", "-", "历史数据", "-", "清除该列内容", "-",
                            "串口通讯仿真", "系统小工具(校验/浮点数)"));
    form.ProtocolCode = 51;
    EXPECT_THAT(EntriesOf(AskMenu()),
                ElementsAre("读时间值", "实时数据", "-", "日累积值", "月累积值", "年累积值", "总累积值", "-",
                            "全部数据", "系统小工具(校验/浮点数)"));
}

TEST_F(GridMenuTest, OtherProtocolsBringNone) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 14, 23, 42}) {
        form.ProtocolCode = code;
        EXPECT_EQ(AskMenu(), nullptr) << code;
    }
}

TEST_F(GridMenuTest, ListsBringTheirsAndTheChipListNone) {
    for (const int index : {1, 2, 3}) form.MSHFlexGrid1[static_cast<std::size_t>(index)].SetSize(5, 5);
    EXPECT_THAT(EntriesOf(AskMenu(*Add(1), {60, 30})), ElementsAre("显示数据", "-", "刷新数据"));
    EXPECT_THAT(EntriesOf(AskMenu(*Add(2), {60, 30})),
                ElementsAre("更改名称", "更改说明", "-", "删除......", "-", "刷新......"));
    EXPECT_EQ(AskMenu(*Add(3), {60, 30}), nullptr);
}

struct Choice {
    std::int16_t protocol;
    QString caption;
    std::int32_t commandCode;
};

TEST_F(GridMenuTest, EntrySetsTheCommandCode) {
    const std::vector<Choice> choices = {
        {11, "读取动态数据(RD)", 10}, {11, "读取静态数据(RR)", 20}, {11, "读取动/静态数据(RR/RD)", 31},
        {11, "读取本行(RE)", 40},     {11, "逐个读取(RE)", 50},     {11, "多个读取(RE)", 60},
        {31, "逐个读取数据", 50},     {31, "固定读取数据", 40},     {31, "多个读取数据", 60},
        {31, "读取板卡类型", 80},     {31, "通讯测试(固定)", 90},   {31, "通讯测试(递增)", 91},
        {33, "实时测量数据", 10},     {33, "历史数据", 77},         {51, "读时间值", 10},
        {51, "总累积值", 77},
    };
    for (const Choice& choice : choices) {
        form.ProtocolCode = choice.protocol;
        form.CommandCode = 77;
        Choose(AskMenu(), choice.caption);
        EXPECT_EQ(form.CommandCode, choice.commandCode) << choice.caption.toStdString();
    }
}

TEST_F(GridMenuTest, EntryInForceIsTicked) {
    const auto ticked = [this] {
        std::vector<std::string> entries;
        QMenu* menu = AskMenu();
        for (const QAction* action : menu->actions()) {
            if (action->isChecked()) entries.push_back(action->text().toStdString());
        }
        menu->close();
        return entries;
    };
    form.ProtocolCode = 11;
    for (const std::int32_t code : {31, 32, 30, 131, 10032}) {
        form.CommandCode = code;
        EXPECT_THAT(ticked(), ElementsAre("读取动/静态数据(RR/RD)")) << code;
        EXPECT_EQ(OperationMessage(form)->text.toStdString(), "操作 读取动/静态数据(RR/RD)") << code;
    }
    form.CommandCode = 1031;
    EXPECT_THAT(ticked(), ElementsAre("读取动/静态数据(RR/RD)"));
    EXPECT_EQ(OperationMessage(form)->text.toStdString(), "操作 仪表搜索：读取动/静态数据(RR/RD)");
    form.CommandCode = 140;
    EXPECT_THAT(ticked(), ElementsAre("读取本行(RE)"));
    form.ProtocolCode = 31;
    form.CommandCode = 60;
    EXPECT_THAT(ticked(), ElementsAre("多个读取数据"));
    EXPECT_EQ(OperationMessage(form)->text.toStdString(), "操作 多个读取数据");
    form.CommandCode = 33;
    EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(GridMenuTest, OperationThatNoEntrySetsIsNamedByItsCode) {
    form.ProtocolCode = 31;
    for (const std::int32_t code : {31, 131, 1031, 10031}) {
        form.CommandCode = code;
        EXPECT_EQ(OperationMessage(form)->text.toStdString(), "操作码 31") << code;
    }
    form.ProtocolCode = 0;
    EXPECT_FALSE(OperationMessage(form).has_value());
}

TEST_F(GridMenuTest, ReadOfOneRowTakesTheRowOnWhichTheMenuWasRaised) {
    form.ProtocolCode = 11;
    form.CurrentRow = 2;
    Choose(AskMenu(7, 1), "读取本行(RE)");
    EXPECT_EQ(form.CurrentRow, 7);
    EXPECT_EQ(form.CommandCode, 40);
    Choose(AskMenu(9, 1), "逐个读取(RE)");
    EXPECT_EQ(form.CurrentRow, 7);
    form.ProtocolCode = 31;
    Choose(AskMenu(4, 1), "固定读取数据");
    EXPECT_EQ(form.CurrentRow, 4);
    grid.Select(6, 2);
    Look();
    Key(Qt::Key_F10, Qt::ShiftModifier);
    Choose(qobject_cast<QMenu*>(QApplication::activePopupWidget()), "固定读取数据");
    EXPECT_EQ(form.CurrentRow, 6);
}

TEST_F(GridMenuTest, ReadOfOneRowBelowTheLastOneLeavesTheRow) {
    form.CurrentRow = 2;
    grid.SetRows(4);
    Look();
    Choose(AskMenu(*view, {60, 9 * kRowHeight}), "读取本行(RE)");
    EXPECT_EQ(form.CurrentRow, 2);
    EXPECT_EQ(form.CommandCode, 40);
}

TEST_F(GridMenuTest, ClearingEmptiesTheCurrentColumnFromRowSixOn) {
    for (int row = 1; row <= kParameters; ++row) {
        grid.SetCell(row, 6, u"C800");
        grid.SetCell(row, 9, u"200");
    }
    grid.Select(2, 6);
    Look();
    Choose(AskMenu(3, 9), "清除该列内容");
    EXPECT_EQ(Shown(5, 6), "C800");
    for (const int row : {6, 7, kParameters}) EXPECT_EQ(Shown(row, 6), "") << row;
    EXPECT_EQ(Shown(6, 9), "200");
}

TEST_F(GridMenuTest, ReplayIsTicked) {
    Choose(AskMenu(), "串口通讯仿真");
    EXPECT_TRUE(form.ConMyCommDriver.Value());
}

TEST_F(GridMenuTest, CatalogueIsRefreshedFromTheStore) {
    GridView* list = Add(1);
    form.SSTab2.Choose(2);
    Look();
    const int rows = form.MSHFlexGrid1[1].Rows();
    bench.session.Add(u"仪表丙", kNativeProtocol, u"1103", {{u"给定值", u"0123", u"2", u"RW", u"0"}});
    Choose(AskMenu(*list, {60, 30}), "刷新数据");
    EXPECT_EQ(form.MSHFlexGrid1[1].Rows(), rows + 1);
    EXPECT_EQ(list->model()->rowCount(), rows);
}

TEST_F(GridMenuTest, MenuKeysBringItAtTheCurrentCell) {
    grid.Select(3, 2);
    Look();
    const QPoint corner = view->visualRect(view->model()->index(2, 2)).bottomLeft();
    const QPoint expected = view->viewport()->mapToGlobal(corner);
    Key(Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), expected);
    EXPECT_EQ(menu->actions().size(), 12);
    menu->close();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, view->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(view->viewport(), &event);
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), expected);
    menu->close();
}

TEST_F(GridMenuTest, ClosedMenusAreGone) {
    for (int time = 0; time < 3; ++time) AskMenu()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(view->findChildren<QMenu*>(), IsEmpty());
}

}  // namespace
}  // namespace commtest::testing
