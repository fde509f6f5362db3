#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "window/communication_page.h"
#include "window/conversion_pane.h"
#include "window/empty_state.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/record_view.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class EmptyPanesTest : public ::testing::Test {
  protected:
    NativeBench session;
    MainForm& form = session.Form();
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{form, theme, settings};
    RecordView& record = window.findChild<CommunicationPage*>()->Record();

    EmptyPanesTest() {
        form.Explanation().SetVisible(true);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        window.Views().Look();
    }

    void Put(TextView text) {
        form.Record().PutOnTop({Text(text)});
        window.Views().Look();
    }
    EmptyState& OfRecord() { return *FindNamed<EmptyState>(window, "没有通讯记录"); }
    EmptyState& OfExplanation() { return *FindNamed<EmptyState>(window, "没有换算过程"); }
    QLabel& Title() { return *window.findChild<QLabel*>("conversionTitle"); }
};

TEST_F(EmptyPanesTest, RecordSaysHowToFillItUntilItHasABlock) {
    EXPECT_TRUE(OfRecord().isVisible());
    EXPECT_EQ(OfRecord().accessibleDescription().toStdString(),
              "选定仪表后按 F5 开始通讯，收发的帧显示在这里");
    EXPECT_EQ(OfRecord().size(), record.viewport()->size());
    Put(u"甲\r\n");
    EXPECT_FALSE(OfRecord().isVisible());
}

TEST_F(EmptyPanesTest, RecordOfARunningSessionWaitsForItsFirstBlockWithoutAWord) {
    session.Start();
    window.Views().Look();
    EXPECT_FALSE(OfRecord().isVisible());
    session.Stop();
    window.Views().Look();
    EXPECT_TRUE(OfRecord().isVisible());
}

TEST_F(EmptyPanesTest, ClickThatEmptiesTheRecordLeavesTheWordsUntilItIsUndone) {
    Put(u"甲\r\n");
    QTest::mouseClick(record.viewport(), Qt::LeftButton, {}, QPoint(30, 15));
    EXPECT_TRUE(OfRecord().isVisible());
    EXPECT_EQ(window.Notes().Text().toStdString(), "已清空通讯记录");
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(OfRecord().isVisible());
    EXPECT_EQ(record.toPlainText().toStdString(), "甲\n");
}

TEST_F(EmptyPanesTest, WordsLeaveTheMouseToTheirPane) {
    const QPoint middle = OfRecord().mapTo(&window, OfRecord().rect().center());
    EXPECT_EQ(window.childAt(middle), record.viewport());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, middle);
    EXPECT_TRUE(record.hasFocus());
}

TEST_F(EmptyPanesTest, ExplanationSaysHowToAskForOneInPlaceOfItsTitle) {
    EXPECT_TRUE(OfExplanation().isVisible());
    EXPECT_EQ(OfExplanation().accessibleDescription().toStdString(), "单击一个数值，这里说明它怎样得来");
    EXPECT_FALSE(Title().isVisible());
    form.Explanation().PutOnTop({u"甲\r\n"});
    window.Views().Look();
    EXPECT_FALSE(OfExplanation().isVisible());
    EXPECT_TRUE(Title().isVisible());
    form.Explanation().Clear();
    window.Views().Look();
    EXPECT_TRUE(OfExplanation().isVisible());
    EXPECT_FALSE(Title().isVisible());
}

}  // namespace
}  // namespace commtest::testing
