#include "window/tab_row.h"

#include <gtest/gtest.h>

#include <QRadioButton>
#include <QTest>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class TabRowTest : public ::testing::Test {
  protected:
    ViewBench bench;
    TabRow row{bench.binder, bench.theme, nullptr};

    MainForm& Form() { return bench.Form(); }
};

TEST_F(TabRowTest, TabsHaveTheirCaptions) {
    const char* captions[] = {"通讯内容", "串口设置", "仪表清单", "演示数据", "错误记录"};
    ASSERT_EQ(row.Tabs().count(), 5);
    for (int tab = 0; tab < 5; ++tab) EXPECT_EQ(row.Tabs().tabText(tab).toStdString(), captions[tab]);
    EXPECT_EQ(row.Tabs().currentIndex(), 0);
}

TEST_F(TabRowTest, TabOfTheUserIsChosenOnce) {
    int clicks = 0;
    Form().SSTab2.Click = [&clicks](int) { ++clicks; };
    row.Tabs().setCurrentIndex(2);
    EXPECT_TRUE(Form().SSTab2.IsChosen(2));
    bench.binder.Look();
    EXPECT_EQ(clicks, 1);
}

TEST_F(TabRowTest, CatalogueTabLoadsTheListOfInstruments) {
    row.Tabs().setCurrentIndex(2);
    const Grid& list = Form().MSHFlexGrid1[1];
    ASSERT_EQ(list.Rows(), 2);
    EXPECT_EQ(ToUtf8(list.Cell(1, 0)), "001");
    EXPECT_EQ(ToUtf8(list.Cell(1, 3)), "仪表甲");
}

TEST_F(TabRowTest, TabOfTheCoreIsShown) {
    row.Tabs().setCurrentIndex(4);
    Form().SSTab2.Choose(0);
    bench.binder.Look();
    EXPECT_EQ(row.Tabs().currentIndex(), 0);
}

TEST_F(TabRowTest, WriteTypeBringsTheParametersIntoView) {
    const auto options = row.findChildren<QRadioButton*>();
    ASSERT_EQ(options.size(), 3);
    EXPECT_EQ(options[0]->text().toStdString(), " 参数双字节修改");
    EXPECT_EQ(options[1]->text().toStdString(), " 参数四字节修改");
    EXPECT_EQ(options[2]->text().toStdString(), " 参数批量修改");
    EXPECT_TRUE(options[1]->isChecked());
    row.Tabs().setCurrentIndex(1);
    options[2]->click();
    EXPECT_TRUE(Form().WriteType.IsChosen(2));
    EXPECT_EQ(row.Tabs().currentIndex(), 0);
}

}  // namespace
}  // namespace commtest::testing
