#include "window/search_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "window/look.h"
#include "window/search_bench.h"
#include "window/text_spin_box.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using ::testing::Contains;

class SearchPanelTest : public ::testing::Test {
  protected:
    SearchBench bench;
    QWidget window;
    SearchPanel* panel = new SearchPanel(bench.binder, bench.theme, &window);

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
    std::string Says() { return panel->findChild<SearchLine*>()->accessibleDescription().toStdString(); }
    void Search() { Button("开始搜索")->click(); }
    // Behind the hit, with the last of three addresses under trial.
    void SearchToTheLastAddress() {
        Search();
        bench.RunUntil(2000);
    }
    int TopOf(QWidget* widget) { return widget->mapTo(panel, QPoint(0, 0)).y(); }
};

TEST_F(SearchPanelTest, StandsWhileTheSessionShowsIt) {
    EXPECT_TRUE(panel->isVisible());
    Form().FindFrame.SetVisible(false);
    bench.binder.Look();
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(SearchPanelTest, AddressesHaveTheirTipsAndBounds) {
    struct Row {
        const char* name;
        const char* text;
    };
    for (const Row& row : {Row{"开始地址", "4"}, Row{"结束地址", "6"}}) {
        ASSERT_NE(Address(row.name), nullptr);
        EXPECT_EQ(Address(row.name)->Text().toStdString(), row.text);
        EXPECT_EQ(Address(row.name)->toolTip().toStdString(), "最小是 1,最大到 255");
        EXPECT_EQ(Address(row.name)->width(), 64);
    }
    for (int presses = 0; presses < 4; ++presses) QTest::keyClick(Address("开始地址"), Qt::Key_Down);
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
        Form().ConSettingBT[index].Set(false);
        bench.binder.Look();
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
    EXPECT_EQ(LookOf(Button("开始搜索")), Look::Primary);
    Search();
    EXPECT_EQ(Form().LastStop().cause, StopCause::Search) << "the session is stopped for it first";
    EXPECT_TRUE(Form().IsRunning());
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(LookOf(Button("开始搜索")), Look::Plain);
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
    panel->resize(715, panel->height());
    panel->layout()->activate();
    EXPECT_EQ(panel->height(), 101);
    EXPECT_EQ(TopOf(Hint()), 68);
    EXPECT_EQ(TopOf(Button("开始搜索")), 4);
    EXPECT_LE(panel->minimumSizeHint().width(), 715);
    panel->resize(1080, panel->height());
    panel->layout()->activate();
    EXPECT_EQ(panel->height(), 69);
    EXPECT_EQ(TopOf(Hint()), 36);
}

// --- The third line ---

TEST_F(SearchPanelTest, ProgressOfASearchStandsInTheThirdLine) {
    SearchToTheLastAddress();
    EXPECT_EQ(Says(), "正在搜索 地址 6 / 6 波特率 9600 (1/1) 已完成 66 % 剩余约 0:02 已发现 1 台");
    EXPECT_EQ(panel->height(), 108);
    EXPECT_EQ(TopOf(Button("停止搜索")), 68);
}

TEST_F(SearchPanelTest, RateThatIsWalkedUntickedIsCalledSo) {
    Form().ConSettingBT[SearchBench::k4800 - 1].Set(true);
    Form().ConSettingDE[1].Set(u"4");
    Search();
    bench.RunUntil(2500);
    EXPECT_EQ(Says(), "正在搜索 地址 4 / 4 波特率 4800 (未勾选) 已完成 33 % 剩余约 0:04 已发现 0 台");
}

TEST_F(SearchPanelTest, ListenerIsToldAtAHitAndAtEachTenthOnly) {
    Form().ConSettingDE[0].Set(u"1");
    Form().ConSettingDE[1].Set(u"40");
    bench.session.line.Answer = [](const std::string&) { return std::vector<Arrival>{}; };
    Search();
    const std::string first = Says();
    bench.RunUntil(2000);
    EXPECT_EQ(Form().ConMeterAddr.Value(), u"2");
    EXPECT_EQ(Says(), first);
    bench.RunUntil(6500);
    EXPECT_EQ(Says(), "正在搜索 地址 5 / 40 波特率 9600 (1/1) 已完成 10 % 剩余约 0:54 已发现 0 台");
}

TEST_F(SearchPanelTest, LineGoesWithThePanelAtTheEndOfASearch) {
    SearchToTheLastAddress();
    bench.RunUntil(20000);
    EXPECT_EQ(bench.session.dialogs.Texts().back().find("搜索结束！总计搜索到 1 台仪表！"), 0U);
    EXPECT_FALSE(panel->isVisible());
    Form().FindFrame.SetVisible(true);
    bench.binder.Look();
    EXPECT_EQ(panel->height(), 69);
    EXPECT_FALSE(Button("停止搜索")->isVisible());
}

TEST_F(SearchPanelTest, SearchIsStoppedByItsButton) {
    SearchToTheLastAddress();
    Button("停止搜索")->click();
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_EQ(Form().LastStop().cause, StopCause::User);
    EXPECT_EQ(Says(), "搜索中止：操作码 1031，间隔 1 ms，停在地址 6、9600 波特");
    EXPECT_FALSE(Button("停止搜索")->isVisible());
}

TEST_F(SearchPanelTest, BrokenOffSearchLeavesItsStateUntilItIsPutBack) {
    bench.session.line.SetSettings(u"19200,N,8,1");
    bench.session.line.SetCommPort(3);
    SearchToTheLastAddress();
    bench.session.Stop();
    bench.RunUntil(5000);
    EXPECT_EQ(Form().CommandCode, 1031);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1");
    Button("恢复搜索前的设置")->click();
    EXPECT_EQ(Form().CommandCode, 31);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "97");
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "7");
    EXPECT_EQ(ToUtf8(bench.session.line.Settings()), "19200,N,8,1");
    EXPECT_EQ(bench.session.line.CommPort(), 3);
    EXPECT_EQ(panel->height(), 69);
}

TEST_F(SearchPanelTest, SearchWithoutARateCanBePutBack) {
    Form().ConSettingBT[SearchBench::k9600].Set(false);
    Search();
    EXPECT_EQ(Says(), "搜索中止：操作码 1031，间隔 1 ms，停在地址 4、9600 波特");
    Button("恢复搜索前的设置")->click();
    EXPECT_EQ(Form().CommandCode, 31);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "97");
}

TEST_F(SearchPanelTest, SecondSearchBehindABrokenOffOneKeepsWhatWasBeforeTheFirst) {
    SearchToTheLastAddress();
    bench.session.Stop();
    Search();
    bench.session.Stop();
    bench.binder.Look();
    EXPECT_EQ(Form().CommandCode, 2031);
    Button("恢复搜索前的设置")->click();
    EXPECT_EQ(Form().CommandCode, 31);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "97");
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "7");
}

TEST_F(SearchPanelTest, ChosenOperationEndsWhatIsSaidOfABrokenOffSearch) {
    SearchToTheLastAddress();
    bench.session.Stop();
    Form().CommandCode = 10;
    bench.binder.Look();
    EXPECT_FALSE(Button("恢复搜索前的设置")->isVisible());
    EXPECT_EQ(panel->height(), 69);
}

TEST_F(SearchPanelTest, SearchThatGoesOnTellsItsProgressAgain) {
    SearchToTheLastAddress();
    bench.session.Stop();
    bench.session.Start();
    bench.binder.Look();
    EXPECT_TRUE(Button("停止搜索")->isVisible());
    EXPECT_FALSE(Button("恢复搜索前的设置")->isVisible());
}

TEST_F(SearchPanelTest, FocusGoesFromOneButtonToTheNext) {
    (void)QTest::qWaitForWindowActive(&window);
    Button("开始搜索")->setFocus();
    QTest::keyClick(Button("开始搜索"), Qt::Key_Space);
    EXPECT_TRUE(Button("停止搜索")->hasFocus());
    QTest::keyClick(Button("停止搜索"), Qt::Key_Space);
    EXPECT_TRUE(Button("恢复搜索前的设置")->hasFocus());
    QTest::keyClick(Button("恢复搜索前的设置"), Qt::Key_Space);
    EXPECT_TRUE(Button("开始搜索")->hasFocus());
}

TEST_F(SearchPanelTest, ProgressOfANarrowOneStandsInPlaceOfTheHint) {
    panel->resize(715, panel->height());
    SearchToTheLastAddress();
    panel->layout()->activate();
    EXPECT_EQ(panel->height(), 108);
    EXPECT_FALSE(Hint()->isVisible());
    EXPECT_LE(panel->minimumSizeHint().width(), 715);
    bench.session.Stop();
    Form().CommandCode = 10;
    bench.binder.Look();
    EXPECT_TRUE(Hint()->isVisible());
    EXPECT_EQ(panel->height(), 101);
}

}  // namespace
}  // namespace commtest::testing
