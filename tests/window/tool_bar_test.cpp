#include "window/tool_bar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>

#include "window/look.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ToolBarTest : public ::testing::Test {
  protected:
    ViewBench bench;
    ToolBar toolBar{bench.binder, bench.theme, nullptr};

    MainForm& Form() { return bench.Form(); }
    void Press(int index) { toolBar.Button(index).click(); }

    std::vector<std::string> MenuOf(int index) {
        std::vector<std::string> captions;
        for (const QAction* action : toolBar.Button(index).menu()->actions())
            captions.push_back(action->text().toStdString());
        return captions;
    }

    void Choose(int index, int entry) { toolBar.Button(index).menu()->actions().at(entry)->trigger(); }
    Notice::Kind Note() { return Form().StatusNote.Value().kind; }
};

TEST_F(ToolBarTest, ButtonsHaveTheirCaptionsAndTips) {
    struct Row {
        int index;
        const char* caption;
        const char* tip;
    };
    for (const Row& row :
         {Row{2, "导入地址", "重新从TQ.Dev文件中导入仪表参数地址数据"}, Row{3, "仪表搜索", "自动搜索仪表"},
          Row{4, "开始通讯", "开始/停止仪联"}, Row{5, "通讯事件", "查询通讯错误事件"},
          Row{6, "历史数据", "所有历史通讯数据"}, Row{7, "清空数据", "清空历史数据"},
          Row{8, "导出数据", "导出数据到Excel文件中"}, Row{9, "特殊地址", "循环生成多路仪表的参数地址表"},
          Row{10, "系统工具", "自定义通讯格式"}, Row{11, "退出系统", "退出本系统"}}) {
        EXPECT_EQ(toolBar.Button(row.index).text().toStdString(), row.caption);
        EXPECT_EQ(toolBar.Button(row.index).toolTip().toStdString(), row.tip);
    }
}

TEST_F(ToolBarTest, StartButtonIsTheStateOfTheSession) {
    Press(4);
    EXPECT_TRUE(Form().IsRunning());
    EXPECT_EQ(toolBar.Button(4).text().toStdString(), "停止通讯");
    EXPECT_EQ(LookOf(&toolBar.Button(4)), Look::ToolBarTinted);
    Press(4);
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_EQ(toolBar.Button(4).text().toStdString(), "开始通讯");
    EXPECT_EQ(LookOf(&toolBar.Button(4)), Look::ToolBarPrimary);
}

// Between stopped and running: tinted, with the icon that starts.
TEST_F(ToolBarTest, StartButtonShowsThatEditingHasStoppedTheSession) {
    toolBar.resize(1200, 44);
    toolBar.show();
    QToolButton& button = toolBar.Button(4);
    const auto ground = [&button] { return button.grab().toImage().pixelColor(6, 6); };
    EXPECT_EQ(ground(), bench.theme.Now().accent);
    const QImage start = button.icon().pixmap(20).toImage();
    bench.session.Start();
    bench.session.Click(1, 10);
    bench.binder.Look();
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_EQ(button.text().toStdString(), "开始通讯");
    EXPECT_EQ(ground(), bench.theme.Now().tint);
    const QImage waiting = button.icon().pixmap(20).toImage();
    EXPECT_EQ(waiting.convertToFormat(QImage::Format_Alpha8), start.convertToFormat(QImage::Format_Alpha8));
    bench.session.Start();
    bench.session.Stop();
    bench.binder.Look();
    EXPECT_EQ(ground(), bench.theme.Now().accent);
}

TEST_F(ToolBarTest, StopByTheSessionItselfIsShown) {
    Press(4);
    Form().SetRunning(false);
    bench.binder.Look();
    EXPECT_EQ(toolBar.Button(4).text().toStdString(), "开始通讯");
}

TEST_F(ToolBarTest, SearchButtonShowsAndHidesThePanel) {
    Press(3);
    EXPECT_TRUE(Form().FindFrame.Visible());
    EXPECT_TRUE(toolBar.Button(3).isChecked());
    Form().FindFrame.SetVisible(false);
    bench.binder.Look();
    EXPECT_FALSE(toolBar.Button(3).isChecked());
}

TEST_F(ToolBarTest, ButtonsWithoutAnActionDoNothing) {
    for (const int index : {5, 6, 7}) Press(index);
    EXPECT_EQ(Note(), Notice::Kind::None);
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_THAT(bench.session.dialogs.Shown, IsEmpty());
}

TEST_F(ToolBarTest, ImportAsksFirst) {
    bench.session.dialogs.Answers = {u"no"};
    Press(2);
    EXPECT_THAT(bench.session.dialogs.Texts(), ElementsAre("确定要重新导入仪表的参数地址表吗？"));
    EXPECT_EQ(Note(), Notice::Kind::None);
}

TEST_F(ToolBarTest, DropDownMenusHaveTheirEntries) {
    EXPECT_THAT(MenuOf(8), ElementsAre("导出当前参数地址表", "导出全部参数地址表"));
    EXPECT_THAT(MenuOf(10), ElementsAre("系统小工具", "指令选择", "参数地址确认"));
}

TEST_F(ToolBarTest, OperationMenuIsAskedFor) {
    int asked = 0;
    QObject::connect(&toolBar, &ToolBar::OperationMenuWanted, [&asked] { ++asked; });
    Choose(10, 1);
    EXPECT_EQ(asked, 1);
    Choose(10, 0);
    EXPECT_EQ(asked, 1);
}

TEST_F(ToolBarTest, LeavingEndsTheProgram) {
    Press(11);
    EXPECT_TRUE(bench.session.program.HasEnded);
}

TEST_F(ToolBarTest, NarrowWindowLeavesIconsAndTheCaptionOfTheStart) {
    if (toolBar.Button(2).icon().isNull()) GTEST_SKIP() << "no reader for the icons";
    toolBar.SetCompact(true);
    EXPECT_EQ(toolBar.Button(2).toolButtonStyle(), Qt::ToolButtonIconOnly);
    EXPECT_EQ(toolBar.Button(4).toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    toolBar.SetCompact(false);
    EXPECT_EQ(toolBar.Button(2).toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

}  // namespace
}  // namespace commtest::testing
