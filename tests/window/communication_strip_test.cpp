#include "window/communication_strip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "session/serial_link.h"
#include "window/paint_watch.h"
#include "window/text_spin_box.h"
#include "window/theme.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class CommunicationStripTest : public ::testing::Test {
  protected:
    ViewBench bench;
    CommunicationStrip strip{bench.binder, bench.theme, nullptr};

    CommunicationStripTest() {
        strip.resize(1080, strip.height());
        strip.show();
    }

    MainForm& Form() { return bench.Form(); }
    QAbstractButton* Button(const char* caption) { return FindButton(strip, caption); }
    QComboBox* Frame() { return FindNamed<QComboBox>(strip, "发送数据"); }
    TextSpinBox* Interval() { return FindNamed<TextSpinBox>(strip, "通讯间隔"); }
    QLabel* Label(const QString& text) {
        for (QLabel* label : strip.findChildren<QLabel*>()) {
            if (label->text() == text) return label;
        }
        return nullptr;
    }
    int TopOf(QWidget* widget) { return widget->mapTo(&strip, QPoint(0, 0)).y(); }
    int LeftOf(QWidget* widget) { return widget->mapTo(&strip, QPoint(0, 0)).x(); }
};

TEST_F(CommunicationStripTest, HasItsCaptionsAndTips) {
    struct Row {
        QWidget* widget;
        const char* tip;
    };
    for (const Row& row :
         {Row{Frame(), "显示实时通讯指令内容"},
          Row{Button(" ASCii码方式"), "对Modbus等协议可能出现不可见的字符"}, Row{Button(" 十六进制方式"), ""},
          Row{Label("通讯间隔"), "通讯间隔时间"}, Row{Interval(), "通讯间隔时间设置"}, Row{Label("毫秒"), ""},
          Row{Button("多台通讯"), "支持多台任意有效仪表地址"}, Row{Button("间歇性通讯"), ""},
          Row{Button("显示切换"), "可显示数据转换过程"}}) {
        ASSERT_NE(row.widget, nullptr) << row.tip;
        EXPECT_EQ(row.widget->toolTip().toStdString(), row.tip);
    }
    EXPECT_EQ(Interval()->Text().toStdString(), "100");
    EXPECT_EQ(Frame()->lineEdit()->placeholderText().toStdString(), "显示通讯指令");
}

TEST_F(CommunicationStripTest, FrameIsShownFromItsBeginningAndOnlyToCopy) {
    Text frame;
    for (int byte = 0; byte < 200; ++byte) frame += u" 40";
    Form().ConSendOutString[0].Set(frame);
    bench.binder.Look();
    QLineEdit* text = Frame()->lineEdit();
    EXPECT_EQ(text->text().toStdString(), ToUtf8(frame));
    EXPECT_EQ(text->cursorPosition(), 0);
    EXPECT_EQ(text->font().families(), Theme::MonoFont().families());
    QTest::keyClicks(text, "x");
    EXPECT_EQ(text->text().toStdString(), ToUtf8(frame));
}

TEST_F(CommunicationStripTest, FrameThatGoesOutIsPaintedAndNothingBehindIt) {
    PaintWhatIsDue(strip);
    const PaintWatch field(*Frame()->lineEdit());
    const PaintWatch box(*Frame());
    const PaintWatch behind(strip);
    Form().SentFrames().Set(u" 40 30 31 52 44 30 31 0D");
    bench.binder.Look();
    PaintWhatIsDue(strip);
    EXPECT_EQ(field.Painted(), QRegion(Frame()->lineEdit()->rect()));
    EXPECT_TRUE(box.Painted().isEmpty());
    EXPECT_TRUE(behind.Painted().isEmpty());
    EXPECT_EQ(OnTheScreen(strip), PaintedAnew(strip));
}

TEST_F(CommunicationStripTest, FramesThatWereSentAreOffered) {
    Form().ConSendOutString[0].Add(u" 40 30");
    Form().ConSendOutString[0].Add(u" 40 31");
    Form().ConSendOutString[0].Set(u"\\0A");
    bench.binder.Look();
    ASSERT_EQ(Frame()->count(), 2);
    EXPECT_EQ(Frame()->itemText(1).toStdString(), " 40 31");
    EXPECT_EQ(Frame()->currentText().toStdString(), "\\0A");
}

TEST_F(CommunicationStripTest, ModeOfTheDisplayIsChosen) {
    EXPECT_EQ(Form().ShowMode.IsChosen(0), Button(" ASCii码方式")->isChecked());
    Button(" 十六进制方式")->click();
    EXPECT_EQ(Form().ShowMode.Chosen(), 1);
    Button(" ASCii码方式")->click();
    EXPECT_EQ(Form().ShowMode.Chosen(), 0);
    Form().ShowMode.Choose(1);
    bench.binder.Look();
    EXPECT_TRUE(Button(" 十六进制方式")->isChecked());
    EXPECT_FALSE(Button(" ASCii码方式")->isChecked());
}

TEST_F(CommunicationStripTest, IntervalStepsByTheStepOfTheSession) {
    Form().ConDelayTime.Change = [this] { Form().DelayStep = Form().ConDelayTime.Value() == u"50" ? 10 : 1; };
    Interval()->selectAll();
    QTest::keyClicks(Interval(), "50");
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "50");
    QTest::keyClick(Interval(), Qt::Key_Up);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "60");
    QTest::keyClick(Interval(), Qt::Key_Up);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "61");
    for (int presses = 0; presses < 70; ++presses) QTest::keyClick(Interval(), Qt::Key_Down);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "0");
}

TEST_F(CommunicationStripTest, TicksReachTheSession) {
    bench.session.dialogs.Answers = {u"3", u"1", u"2", u"3", u"5"};
    Button("多台通讯")->click();
    EXPECT_TRUE(Form().Check1.Value());
    EXPECT_FALSE(bench.session.dialogs.Shown.empty());
    Button("间歇性通讯")->click();
    EXPECT_TRUE(Form().TimeSetup.Value());
}

TEST_F(CommunicationStripTest, TickOfACancelledQuestionGoesBack) {
    bench.session.dialogs.Answers = {u"", u""};
    Button("多台通讯")->click();
    EXPECT_FALSE(Form().Check1.Value());
    EXPECT_FALSE(Button("多台通讯")->isChecked());
    Button("间歇性通讯")->click();
    EXPECT_FALSE(Form().TimeSetup.Value());
    EXPECT_FALSE(Button("间歇性通讯")->isChecked());
    EXPECT_FALSE(Form().IntervalTimer().Enabled());
    const auto& boxes = bench.session.dialogs.Shown;
    ASSERT_EQ(boxes.size(), 4u);
    EXPECT_EQ(boxes[1].number, 13);
    EXPECT_EQ(boxes[3].number, 13);
}

TEST_F(CommunicationStripTest, TickOfAnAnswerThatIsNoNumberGoesBack) {
    bench.session.dialogs.Answers = {u"2", u"1", u"1a"};
    Button("多台通讯")->click();
    EXPECT_FALSE(Form().Check1.Value());
    EXPECT_FALSE(Button("多台通讯")->isChecked());
}

TEST_F(CommunicationStripTest, PaneSwitchTakesTheNextLayout) {
    Form().ShowTypeStep = 0;
    Button("显示切换")->click();
    EXPECT_EQ(Form().ShowTypeStep, 1);
    EXPECT_TRUE(Form().ConCommString[0].Visible());
    EXPECT_TRUE(Form().ConCommString[1].Visible());
    Button("显示切换")->click();
    EXPECT_FALSE(Form().ConCommString[1].Visible());
}

TEST_F(CommunicationStripTest, StandsInOneLine) {
    EXPECT_EQ(strip.height(), 61);
    const int top = TopOf(Frame());
    EXPECT_EQ(top, 4);
    for (QWidget* widget : {static_cast<QWidget*>(Interval()), static_cast<QWidget*>(Button("显示切换"))}) {
        EXPECT_EQ(TopOf(widget), top);
        EXPECT_EQ(widget->height(), 28);
    }
    EXPECT_LT(LeftOf(Button("间歇性通讯")), LeftOf(Button("显示切换")));
    EXPECT_EQ(LeftOf(Button("显示切换")) + Button("显示切换")->width(), 1080 - 12);
}

TEST_F(CommunicationStripTest, CompactOneStandsInTwoLines) {
    strip.SetCompact(true);
    strip.resize(715, strip.height());
    EXPECT_EQ(strip.height(), 93);
    strip.layout()->activate();
    EXPECT_EQ(TopOf(Frame()), 4);
    EXPECT_EQ(TopOf(Button("显示切换")), 4);
    EXPECT_EQ(TopOf(Interval()), 36);
    EXPECT_GE(Frame()->width(), 180);
    EXPECT_EQ(LeftOf(Label("通讯间隔")), 12);
    EXPECT_LE(strip.minimumSizeHint().width(), 715);
    strip.SetCompact(true);
    strip.SetCompact(false);
    strip.resize(1080, strip.height());
    strip.layout()->activate();
    EXPECT_EQ(TopOf(Interval()), 4);
    EXPECT_LT(LeftOf(Interval()), LeftOf(Button("显示切换")));
    EXPECT_GT(LeftOf(Interval()), LeftOf(Button(" 十六进制方式")));
}

}  // namespace
}  // namespace commtest::testing
