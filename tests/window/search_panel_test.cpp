#include "window/search_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "window/text_spin_box.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using ::testing::Contains;

class SearchPanelTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QWidget window;
    SearchPanel* panel = new SearchPanel(bench.binder, &window);

    SearchPanelTest() {
        window.resize(1080, 200);
        panel->setGeometry(0, 0, 1080, panel->height());
        window.show();
        Form().FindFrame.SetVisible(true);
        bench.binder.Look();
    }

    MainForm& Form() { return bench.Form(); }
    QAbstractButton* Button(const char* caption) { return FindButton(*panel, caption); }
    TextSpinBox* Address(const char* name) { return FindNamed<TextSpinBox>(*panel, name); }
    QLabel* Hint() {
        for (QLabel* label : panel->findChildren<QLabel*>()) {
            if (label->text() == "系统提示:完全搜索仪表,耗时将在三分钟左右！") return label;
        }
        return nullptr;
    }
    int TopOf(QWidget* widget) { return widget->mapTo(panel, QPoint(0, 0)).y(); }
};

TEST_F(SearchPanelTest, StandsWhileTheSessionShowsIt) {
    EXPECT_TRUE(panel->isVisible());
    Form().FindFrame.SetVisible(false);
    bench.binder.Look();
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(SearchPanelTest, AddressesHaveTheirDefaultsTipsAndBounds) {
    struct Row {
        const char* name;
        const char* text;
    };
    for (const Row& row : {Row{"开始地址", "1"}, Row{"结束地址", "10"}}) {
        ASSERT_NE(Address(row.name), nullptr);
        EXPECT_EQ(Address(row.name)->Text().toStdString(), row.text);
        EXPECT_EQ(Address(row.name)->toolTip().toStdString(), "最小是 1,最大到 255");
        EXPECT_EQ(Address(row.name)->width(), 64);
    }
    QTest::keyClick(Address("开始地址"), Qt::Key_Down);
    EXPECT_EQ(ToUtf8(Form().ConSettingDE[0].Value()), "1");
    Address("结束地址")->selectAll();
    QTest::keyClicks(Address("结束地址"), "254");
    for (int presses = 0; presses < 3; ++presses) QTest::keyClick(Address("结束地址"), Qt::Key_Up);
    EXPECT_EQ(ToUtf8(Form().ConSettingDE[1].Value()), "255");
    EXPECT_EQ(ToUtf8(Form().ConSettingDE[0].Value()), "1");
}

TEST_F(SearchPanelTest, AddressesHaveRoomForTheirDigits) {
    for (const char* name : {"开始地址", "结束地址"}) {
        const auto& edit = *Address(name)->findChild<QLineEdit*>();
        constexpr int kMarginsAndCaret = 5;
        EXPECT_GE(edit.width(), edit.fontMetrics().horizontalAdvance("255") + kMarginsAndCaret) << name;
    }
}

TEST_F(SearchPanelTest, EachBaudRateIsATick) {
    const char* captions[] = {" 1200", " 2400", " 4800", " 9600", " 19200", " 28800", " 38400", " 57600"};
    for (std::size_t index = 0; index < 8; ++index) {
        ASSERT_NE(Button(captions[index]), nullptr) << captions[index];
        EXPECT_FALSE(Form().ConSettingBT[index].Value());
        Button(captions[index])->click();
        EXPECT_TRUE(Form().ConSettingBT[index].Value()) << captions[index];
    }
}

TEST_F(SearchPanelTest, PortIsTyped) {
    auto* port = FindNamed<QComboBox>(*panel, "串口编号");
    ASSERT_NE(port, nullptr);
    EXPECT_EQ(port->width(), 84);
    port->lineEdit()->selectAll();
    QTest::keyClicks(port, "COM12");
    QTest::keyClick(port, Qt::Key_Return);
    EXPECT_EQ(ToUtf8(Form().ConSettingComm.Value()), "COM12");
}

TEST_F(SearchPanelTest, SearchIsBegunByItsButton) {
    bench.session.Start();
    EXPECT_TRUE(Button("开始搜索")->property("primary").toBool());
    Button("开始搜索")->click();
    // The session is stopped for it first.
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(SearchPanelTest, SearchIsGivenUpByButtonAndEscape) {
    Button("放弃搜索")->click();
    EXPECT_FALSE(Form().FindFrame.Visible());
    EXPECT_FALSE(panel->isVisible());
    for (QWidget* place : {static_cast<QWidget*>(Address("开始地址")), static_cast<QWidget*>(Button(" 9600")),
                           static_cast<QWidget*>(FindNamed<QComboBox>(*panel, "串口编号"))}) {
        Form().FindFrame.SetVisible(true);
        bench.binder.Look();
        QTest::keyClick(place, Qt::Key_Escape);
        EXPECT_FALSE(panel->isVisible());
    }
}

TEST_F(SearchPanelTest, OtherKeysLeaveItStanding) {
    QTest::keyClick(Button(" 9600"), Qt::Key_F7);
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(SearchPanelTest, StandsInTwoLines) {
    EXPECT_EQ(panel->height(), 69);
    EXPECT_EQ(TopOf(Button("开始搜索")), 4);
    EXPECT_EQ(Button("开始搜索")->height(), 28);
    ASSERT_NE(Hint(), nullptr);
    EXPECT_EQ(TopOf(Hint()), 36);
    EXPECT_EQ(Hint()->geometry().right() + 1, 1080 - 12);
}

TEST_F(SearchPanelTest, HintOfANarrowOneHasItsOwnLine) {
    panel->SetNarrow(true);
    panel->resize(715, panel->height());
    panel->layout()->activate();
    EXPECT_EQ(panel->height(), 101);
    EXPECT_EQ(TopOf(Hint()), 68);
    EXPECT_EQ(TopOf(Button("开始搜索")), 4);
    EXPECT_LE(panel->minimumSizeHint().width(), 715);
    panel->SetNarrow(false);
    panel->resize(1080, panel->height());
    panel->layout()->activate();
    EXPECT_EQ(panel->height(), 69);
    EXPECT_EQ(TopOf(Hint()), 36);
}

}  // namespace
}  // namespace commtest::testing
