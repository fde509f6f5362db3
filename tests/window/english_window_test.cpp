#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

#include "session/grid_rows.h"
#include "session/port_settings.h"
#include "session/reply_routing.h"
#include "session/wall_clock.h"
#include "support/native_instrument.h"
#include "window/chip_panel.h"
#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/filter_box.h"
#include "window/grid_view.h"
#include "window/main_window.h"
#include "window/search_panel.h"
#include "window/sidebar.h"
#include "window/statistics_label.h"
#include "window/status_panels.h"
#include "window/tab_row.h"
#include "window/tool_bar.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

using Words = std::vector<std::string>;

// The window over a session of the English face, as large as on a first start.
class EnglishWindow : public ::testing::Test {
  protected:
    NativeBench session{kEnglishFace};
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{session.Form(), theme, settings};

    EnglishWindow() {
        window.resize(1366, 700);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        QApplication::processEvents();
    }

    MainForm& Form() { return session.Form(); }
    void Look() {
        window.Views().Look();
        QApplication::processEvents();
    }

    template <typename Part>
    Part& The() {
        return *window.findChild<Part*>();
    }

    template <typename Widget>
    static Words TextsOf(const QWidget& view) {
        Words texts;
        for (const Widget* widget : view.findChildren<Widget*>()) {
            if (!widget->text().isEmpty()) texts.push_back(widget->text().toStdString());
        }
        return texts;
    }
};

// --- The captions ---

TEST_F(EnglishWindow, AdvancedSettingsHaveTheirCaptions) {
    EXPECT_THAT(TextsOf<QCheckBox>(The<Sidebar>()),
                ElementsAre("arbitrary length", "stop rolling screen", "Automatic store record",
                            "store error record", "Data collection", "Data demonstration"));
    EXPECT_THAT(TextsOf<QLabel>(The<Sidebar>()), Contains("Advanced Settings"));
    EXPECT_THAT(TextsOf<QLabel>(The<Sidebar>()), ::testing::Not(Contains("(通讯时,可不理会这些设置)")));
}

TEST_F(EnglishWindow, FieldsOfTheInstrumentHaveTheirCaptions) {
    EXPECT_THAT(TextsOf<QLabel>(The<Sidebar>()),
                IsSupersetOf({"Instrument Selection", "Name", "Address", "Parameter Number"}));
}

TEST_F(EnglishWindow, SearchPanelHasItsCaptions) {
    Form().FindFrame.SetVisible(true);
    Look();
    EXPECT_THAT(TextsOf<QLabel>(The<SearchPanel>()),
                IsSupersetOf({"Instrument Search", "COM Port", "Start Address", "End Address", "Baud Rate"}));
    EXPECT_THAT(TextsOf<QPushButton>(The<SearchPanel>()), IsSupersetOf({"Start", "Close"}));
}

TEST_F(EnglishWindow, PortPageHasItsCaptions) {
    Form().SSTab2.Choose(1);
    Look();
    EXPECT_THAT(TextsOf<QLabel>(*window.findChild<QWidget*>("portForm")),
                IsSupersetOf({"COM Port：", "Baud Rate：", "Data Bit：", "Parity Check：", "Stop Bit："}));
}

TEST_F(EnglishWindow, StripHasItsCaptions) {
    EXPECT_THAT(TextsOf<QRadioButton>(The<CommunicationStrip>()), ElementsAre(" Ascii", "Hex"));
    EXPECT_THAT(TextsOf<QPushButton>(The<CommunicationStrip>()), Contains("display switch"));
}

TEST_F(EnglishWindow, StartButtonReadsRunAndStop) {
    QToolButton& button = The<ToolBar>().Button(4);
    EXPECT_EQ(button.text().toStdString(), "Run");
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_EQ(button.text().toStdString(), "Stop");
}

TEST_F(EnglishWindow, GridHasItsHeadings) {
    const QAbstractItemModel& model = *The<CommunicationPage>().Parameters().model();
    Words headings;
    for (int col = 0; col < column::kCount; ++col)
        headings.push_back(model.headerData(col, Qt::Horizontal).toString().toStdString());
    EXPECT_THAT(headings, ElementsAre("serial", "parameter name", "address", "length", "attribute", "Dec",
                                      "RE 读值", "RR/RD", "value1", "value2", "modified value"));
}

TEST_F(EnglishWindow, StatusBarHasItsPanels) {
    ShowPortStatus(Form());
    Form().StatusBar1[2].Set(Form().texts.clockPanel({.year = 2026, .month = 11, .day = 21, .hour = 10}));
    Look();
    EXPECT_THAT(TextsOf<QLabel>(The<StatusPanels>()),
                IsSupersetOf({"COM1  9600,N,8,1                                                 COM Port:  "
                              "Close",
                              "21 / 11 / 2026   10:00:00"}));
}

TEST_F(EnglishWindow, StatisticsHaveAnEnglishHeadAndTheChineseTail) {
    Form().SendCount = 12;
    ShowStatistics(Form());
    Look();
    Words shown;
    for (const auto* label : The<StatisticsLine>().findChildren<StatisticsLabel*>())
        shown.push_back(label->accessibleName().toStdString());
    EXPECT_THAT(shown, ElementsAre("Times: 12", "数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %"));
}

TEST_F(EnglishWindow, WhatItHasNoWordsForStaysChinese) {
    Words buttons;
    for (const int index : {2, 3, 5, 6, 7, 8, 9, 10, 11})
        buttons.push_back(The<ToolBar>().Button(index).text().toStdString());
    EXPECT_THAT(buttons, ElementsAre("导入地址", "仪表搜索", "通讯事件", "历史数据", "清空数据", "导出数据",
                                     "特殊地址", "系统工具", "退出系统"));
    Words tabs;
    for (int tab = 0; tab < 5; ++tab) tabs.push_back(The<TabRow>().Tabs().tabText(tab).toStdString());
    EXPECT_THAT(tabs, ElementsAre("通讯内容", "串口设置", "仪表清单", "演示数据", "错误记录"));
    EXPECT_THAT(TextsOf<QLabel>(The<CommunicationStrip>()), IsSupersetOf({"发送数据", "通讯间隔", "毫秒"}));
    EXPECT_THAT(TextsOf<QCheckBox>(The<CommunicationStrip>()), ElementsAre("多台通讯"));
}

TEST_F(EnglishWindow, TipsStayChinese) {
    EXPECT_EQ(The<ToolBar>().Button(4).toolTip().toStdString(), "开始/停止仪联");
    ASSERT_NE(FindButton(window, "display switch"), nullptr);
    EXPECT_EQ(FindNamed<QComboBox>(window, "Name")->toolTip().toStdString(),
              "注意:模块及普通电流 电压 转速表等均使用 TQ智能数字/光柱显示控制仪 的参数地址表");
    EXPECT_EQ(FindButton(window, "arbitrary length")->toolTip().toStdString(),
              "在读多个参数时，随机变化读取数据的长度，用于通讯测试");
    EXPECT_EQ(FindButton(window, "display switch")->toolTip().toStdString(), "可显示数据转换过程");
}

TEST_F(EnglishWindow, PromptsOfTheGridStayChinese) {
    session.dialogs.Shown.clear();
    window.Views().Event([this] { session.Click(5, column::kNewValue); });  // 版本 has no "W"
    EXPECT_THAT(session.dialogs.Texts(), ElementsAre("注意:参数没有W属性,数据无法修改！"));
}

// --- What it lacks ---

TEST_F(EnglishWindow, ChoiceOfAWriteTypeIsNotThere) {
    EXPECT_THAT(TextsOf<QRadioButton>(The<TabRow>()), IsEmpty());
}

TEST_F(EnglishWindow, IntervalTimerIsNotThere) { EXPECT_EQ(FindButton(window, "间歇性通讯"), nullptr); }

TEST_F(EnglishWindow, DescriptionOfAChipIsNotThere) {
    window.findChild<QStackedWidget*>()->setCurrentIndex(2);
    ASSERT_NE(window.findChild<ChipPanel*>(), nullptr);
    EXPECT_EQ(The<ChipPanel>().findChild<QPlainTextEdit*>(), nullptr);
}

TEST_F(EnglishWindow, DoubleClickOnTheFirstPanelAsksNothing) {
    auto* maker = window.findChild<QLabel*>("makerPanel");
    QTest::mouseDClick(maker, Qt::LeftButton);
    EXPECT_THAT(session.dialogs.Texts(), IsEmpty());
    EXPECT_EQ(maker->toolTip().toStdString(), "");
    EXPECT_EQ(maker->focusPolicy(), Qt::NoFocus);
}

// --- How it is laid out ---

TEST_F(EnglishWindow, AdvancedSettingsStandInOneColumnAndLeaveTenOptionsInView) {
    QList<int> lefts;
    for (const auto* box : The<Sidebar>().findChildren<QCheckBox*>()) lefts += box->x();
    EXPECT_EQ(lefts, QList<int>(6, lefts.front()));
    EXPECT_EQ(The<Sidebar>().findChild<QScrollArea*>("optionList")->height(), 10 * 20);
}

TEST_F(EnglishWindow, FilterTakesTheRoomThatTheWriteTypesLeave) {
    EXPECT_TRUE(The<FilterBox>().Field().isVisible());
    EXPECT_EQ(The<FilterBox>().Field().width(), 260);
}

TEST_F(EnglishWindow, HeadingsHaveRoomWithoutAScrollBar) {
    GridView& grid = The<CommunicationPage>().Parameters();
    EXPECT_GE(grid.columnWidth(column::kAttribute), 72);
    EXPECT_GE(grid.columnWidth(column::kNewValue), 144);
    EXPECT_EQ(grid.horizontalScrollBar()->maximum(), 0);
}

}  // namespace
}  // namespace commtest::testing
