#include "window/bindings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "runtime/runtime_error.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class BindingsTest : public ::testing::Test {
  protected:
    ViewBench bench;
    Binder& binder = bench.binder;
    QWidget window;
};

TEST_F(BindingsTest, TextOfTheCoreIsShownAtTheNextLook) {
    QLineEdit edit;
    Bind(binder, bench.Form().InputText, edit);
    bench.Form().InputText.Set(u"中 12");
    EXPECT_EQ(edit.text(), "");
    binder.Look();
    EXPECT_EQ(edit.text().toStdString(), "中 12");
}

TEST_F(BindingsTest, EntryOfTheUserGoesToTheControlAndRunsItsChange) {
    QLineEdit edit(&window);
    bench.Form().InputText.SetVisible(true);
    Bind(binder, bench.Form().InputText, edit);
    int changes = 0;
    bench.Form().InputText.Change = [&changes] { ++changes; };
    QTest::keyClicks(&edit, "7x");
    EXPECT_EQ(ToUtf8(bench.Form().InputText.Value()), "7x");
    EXPECT_EQ(changes, 2);
}

TEST_F(BindingsTest, LookBehindAnUnchangedTextLeavesTheCursorAlone) {
    QLineEdit edit;
    Bind(binder, bench.Form().InputText, edit);
    QTest::keyClicks(&edit, "123");
    edit.setCursorPosition(1);
    bench.Form().InputText.SetVisible(true);
    binder.Look();
    EXPECT_EQ(edit.cursorPosition(), 1);
}

TEST_F(BindingsTest, TimerLooksByItself) {
    QLabel label;
    Bind(binder, bench.Form().ConCommMessage[0], label);
    bench.Form().ConCommMessage[0].Set(u"数据不完整");
    EXPECT_TRUE(QTest::qWaitFor([&] { return label.text() == u"数据不完整"; }, 2000));
}

TEST_F(BindingsTest, LookThatIsAskedForComesSoonAndIsOneForAll) {
    int looks = 0;
    binder.Look();
    binder.AtEachLook([&looks] { ++looks; });
    looks = 0;
    int looksBefore = -1;
    int looksBehind = -1;
    QTimer::singleShot(5, Qt::PreciseTimer, &window, [&] { looksBefore = looks; });
    QTimer::singleShot(66, Qt::PreciseTimer, &window, [&] { looksBehind = looks; });
    for (int turn = 0; turn < 3; ++turn) binder.LookSoon();
    EXPECT_TRUE(binder.LooksSoon());
    ASSERT_TRUE(QTest::qWaitFor([&] { return looksBehind >= 0; }));
    EXPECT_EQ(looksBefore, 0);
    EXPECT_EQ(looksBehind, 1);
    EXPECT_FALSE(binder.LooksSoon());
}

TEST_F(BindingsTest, LookBehindAnEventOfTheUserIsThatOfTheTimers) {
    binder.LookSoon();
    binder.Event([] {});
    EXPECT_FALSE(binder.LooksSoon());
}

TEST_F(BindingsTest, PresenceIsShown) {
    QLineEdit edit(&window);
    Bind(binder, bench.Form().InputText, edit);
    EXPECT_TRUE(edit.isHidden());
    bench.Form().InputText.SetVisible(true);
    bench.Form().InputText.SetEnabled(false);
    binder.Look();
    EXPECT_FALSE(edit.isHidden());
    EXPECT_FALSE(edit.isEnabled());
}

TEST_F(BindingsTest, TickRunsItsClickFromBothSides) {
    QCheckBox box;
    int clicks = 0;
    bench.Form().ConSelChange.Click = [&clicks] { ++clicks; };
    Bind(binder, bench.Form().ConSelChange, box);
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(5, box.height() / 2));
    EXPECT_TRUE(bench.Form().ConSelChange.Value());
    EXPECT_EQ(clicks, 1);
    bench.Form().ConSelChange.Set(false);
    binder.Look();
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(clicks, 2);
}

TEST_F(BindingsTest, OptionsFollowAndChoose) {
    QRadioButton first(&window);
    QRadioButton second(&window);
    Bind(binder, bench.Form().ShowMode, {&first, &second});
    EXPECT_TRUE(first.isChecked());
    second.click();
    EXPECT_TRUE(bench.Form().ShowMode.IsChosen(1));
    bench.Form().ShowMode.Show(0);
    binder.Look();
    EXPECT_TRUE(first.isChecked());
    EXPECT_FALSE(second.isChecked());
}

TEST_F(BindingsTest, ListShowsATextThatIsNoneOfItsEntries) {
    QComboBox box;
    Bind(binder, bench.Form().ConMeterName[0], box);
    EXPECT_EQ(box.currentText().toStdString(), "仪表甲");
    bench.Form().ConMeterName[0].Set(u"旧仪表");
    binder.Look();
    EXPECT_EQ(box.currentIndex(), -1);
    EXPECT_EQ(box.placeholderText().toStdString(), "旧仪表");
}

TEST_F(BindingsTest, ChosenEntryRunsTheClickOnce) {
    QComboBox box;
    ListControl& list = bench.Form().ConDataTypeList;
    list.Add(u"甲");
    list.Add(u"乙");
    int clicks = 0;
    list.Click = [&clicks] { ++clicks; };
    Bind(binder, list, box);
    box.setCurrentIndex(1);
    emit box.activated(1);
    EXPECT_EQ(ToUtf8(list.Value()), "乙");
    EXPECT_EQ(clicks, 1);
}

TEST_F(BindingsTest, TypingIntoAnEditableListOnlySetsTheText) {
    QComboBox box;
    box.setEditable(true);
    ListControl& list = bench.Form().ConCommSetting[1];
    int clicks = 0;
    list.Click = [&clicks] { ++clicks; };
    Bind(binder, list, box);
    box.lineEdit()->selectAll();
    QTest::keyClicks(box.lineEdit(), "300");
    EXPECT_EQ(ToUtf8(list.Value()), "300");
    EXPECT_EQ(clicks, 0);
}

TEST_F(BindingsTest, GrowingListIsNotCopied) {
    QComboBox box;
    ListControl& list = bench.Form().ConSendOutString[0];
    Bind(binder, list, box);
    int resets = 0;
    int insertions = 0;
    QObject::connect(box.model(), &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    QObject::connect(box.model(), &QAbstractItemModel::rowsInserted, [&insertions] { ++insertions; });
    for (int turn = 0; turn < 3; ++turn) {
        list.Add(u"帧 " + Text(1, static_cast<char16_t>(u'0' + turn)));
        binder.Look();
    }
    EXPECT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemText(2).toStdString(), "帧 2");
    EXPECT_EQ(insertions, 3);
    EXPECT_EQ(resets, 0);
    list.Clear();
    list.Add(u"新");
    binder.Look();
    EXPECT_EQ(box.count(), 1);
    EXPECT_EQ(resets, 1);
}

TEST_F(BindingsTest, ErrorOfAHandlerIsToldAndTheProgramGoesOn) {
    QCheckBox box;
    bench.Form().ConSelChange.Click = [] { throw RuntimeError(RuntimeError::kSubscript); };
    Bind(binder, bench.Form().ConSelChange, box);
    box.click();
    ASSERT_EQ(bench.session.dialogs.Shown.size(), 1u);
    EXPECT_EQ(bench.session.dialogs.Shown[0].number, 9);
}

TEST_F(BindingsTest, WidgetIsLeftForAnotherButNotForABox) {
    QLineEdit field(&window);
    QLineEdit other(&window);
    int left = 0;
    WhenLeft(field, [&left] { ++left; });
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();
    QFocusEvent byBox(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&field, &byBox);
    QFocusEvent byMenu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&field, &byMenu);
    EXPECT_EQ(left, 0);
    other.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(left, 1);
}

TEST(TextSpinBox, StepKeepsTheNumberBetweenItsBounds) {
    TextSpinBox box;
    box.SetRange(1, 255);
    box.SetStep(10);
    box.SetText("250");
    box.stepBy(1);
    EXPECT_EQ(box.Text(), "255");
    box.stepBy(-1);
    EXPECT_EQ(box.Text(), "245");
    box.SetText("5");
    box.stepBy(-1);
    EXPECT_EQ(box.Text(), "1");
}

TEST(TextSpinBox, StepFromTheLargestNumberStaysWithinTheBounds) {
    TextSpinBox box;
    box.SetRange(0, 65535);
    box.SetStep(1000);
    box.SetText("2147483647");
    box.stepBy(1);
    EXPECT_EQ(box.Text(), "65535");
    box.SetText("-2147483648");
    box.stepBy(-1);
    EXPECT_EQ(box.Text(), "0");
}

TEST(TextSpinBox, TextIsFreeAndAStepFromNoNumberGivesTheLowest) {
    TextSpinBox box;
    box.SetRange(3, 9);
    QTest::keyClicks(&box, "abc");
    EXPECT_EQ(box.Text(), "abc");
    box.stepBy(1);
    EXPECT_EQ(box.Text(), "3");
}

TEST(TextSpinBox, ArrowKeysStepAndTellIt) {
    TextSpinBox box;
    box.SetText("7");
    QStringList told;
    QObject::connect(&box, &TextSpinBox::Edited, [&told](const QString& text) { told += text; });
    QTest::keyClick(&box, Qt::Key_Up);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(told, QStringList({"8", "7"}));
}

}  // namespace
}  // namespace commtest::testing
