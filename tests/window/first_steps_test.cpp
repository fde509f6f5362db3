#include "window/first_steps.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "host/store.h"
#include "window/communication_page.h"
#include "window/empty_state.h"
#include "window/grid_view.h"
#include "window/guide_key.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/record_view.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class FirstStepsTest : public ::testing::Test {
  protected:
    NativeBench session;
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    std::unique_ptr<MainWindow> window;
    int trials = 0;

    FirstStepsTest() {
        session.line.Ports = {{1, u"/dev/ttyUSB0"}};
        Open();
    }

    void Open() {
        window = std::make_unique<MainWindow>(Form(), theme, settings);
        window->ShowFirstSteps([this] { ++trials; });
        window->show();
        (void)QTest::qWaitForWindowActive(window.get());
        (void)QTest::qWaitFor([this] { return PortIsLookedUp(); });
    }

    // The window is painted before; without steps there is nothing to look up.
    bool PortIsLookedUp() {
        if (Steps() == nullptr) return true;
        const auto labels = Steps()->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [](const QLabel* label) { return label->text().startsWith("COM1"); });
    }

    MainForm& Form() { return session.Form(); }
    FirstSteps* Steps() { return window->findChild<FirstSteps*>(); }
    RecordView& Record() { return window->findChild<CommunicationPage*>()->Record(); }
    QStringList StepNames() {
        QStringList names;
        for (const FirstStep* step : Steps()->findChildren<FirstStep*>()) names += step->accessibleName();
        return names;
    }
    void Press(const char* caption) { FindButton(*Steps(), caption)->click(); }
    void Exchange() {
        session.AnswersEachFrame(frames::kStaticReply);
        session.Start();
        session.line.RunUntil(session.line.Time() + 2000);
        window->Views().Look();
    }
};

TEST_F(FirstStepsTest, StandInPlaceOfTheRecordUntilTheFirstExchange) {
    EXPECT_TRUE(Steps()->isVisible());
    EXPECT_FALSE(Record().isVisible());
    EXPECT_EQ(window->Notes().Text().toStdString(), "欢迎使用：按三步开始，F1 看使用说明");
    Exchange();
    EXPECT_FALSE(Steps()->isVisible());
    EXPECT_TRUE(Record().isVisible());
    Open();
    EXPECT_EQ(Steps(), nullptr);
    EXPECT_TRUE(Record().isVisible());
}

TEST_F(FirstStepsTest, WinOverTheWordsOfTheEmptyPanes) {
    const auto* words = FindNamed<EmptyState>(*window, "没有通讯记录");
    EXPECT_FALSE(words->isVisible());
    Form().outside.store.Close();  // without a catalogue there is no first step
    window->Views().Look();
    EXPECT_FALSE(Steps()->isVisible());
    EXPECT_TRUE(words->isVisible());
}

TEST_F(FirstStepsTest, RingTellsWhatIsDone) {
    EXPECT_EQ(StepNames(),
              QStringList({"第 1 步，选串口，已完成", "第 2 步，选仪表", "第 3 步，按 F5 开始通讯"}));
    Form().ConMeterAddr.Set(u"7");
    window->Views().Look();
    EXPECT_EQ(StepNames().at(1), "第 2 步，选仪表，已完成");
}

TEST_F(FirstStepsTest, PortWithoutADeviceIsStillToBeChosen) {
    session.line.Ports.clear();
    Form().StatusBar1[1].Set(u"串口设置:  COM1");
    window->Views().Look();
    EXPECT_EQ(StepNames().at(0), "第 1 步，选串口");
}

TEST_F(FirstStepsTest, ActionsDoTheSteps) {
    Press("串口设置");
    EXPECT_EQ(Form().SSTab2.Chosen(), 1);
    Form().SSTab2.Choose(0);
    window->Views().Look();
    Press("仪表搜索");
    EXPECT_TRUE(Form().FindFrame.Visible());
    Press("开始通讯");
    EXPECT_TRUE(Form().IsRunning());
    Press("用模拟仪表试一试");
    EXPECT_EQ(trials, 1);
}

TEST_F(FirstStepsTest, ActionsAreAsHighAsTheDesignHasThemAndStandUnderTheTexts) {
    constexpr int kPaddingOfAction = 8;
    for (const FirstStep* step : Steps()->findChildren<FirstStep*>()) {
        const auto* action = step->findChild<QPushButton*>();
        EXPECT_EQ(action->height(), 24);
        EXPECT_EQ(action->x() + kPaddingOfAction, step->findChildren<QLabel*>().at(1)->x());
    }
}

TEST_F(FirstStepsTest, AreaKeyAndTabulatorReachThem) {
    window->findChild<CommunicationPage*>()->Parameters().setFocus();
    QTest::keyClick(window.get(), Qt::Key_F6);
    QTest::keyClick(window.get(), Qt::Key_F6);
    for (const char* caption : {"串口设置", "仪表搜索", "开始通讯", "用模拟仪表试一试"}) {
        EXPECT_EQ(QApplication::focusWidget(), FindButton(*Steps(), caption)) << caption;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(FirstStepsTest, HelpKeyTellsOfTheFirstConnection) {
    Steps()->findChild<QAbstractButton*>()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    ASSERT_NE(window->Guide().Window(), nullptr);
    EXPECT_EQ(window->Guide().Window()->View().Place(), "connection.md#first-poll");
}

}  // namespace
}  // namespace commtest::testing
