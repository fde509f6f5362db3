#include "window/cell_editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "commands/toolbar_commands.h"
#include "window/editor_hint.h"
#include "window/grid_view.h"
#include "window/look.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/record_view.h"
#include "window/state_line.h"
#include "window/tool_bar.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

// The whole window, so that the focus goes the ways that it goes for the user.
class CellEditorTest : public ::testing::Test {
  protected:
    NativeBench session;
    MainForm& form = session.Form();
    Grid& grid = form.ParameterGrid();
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{form, theme, settings};
    CellEditor& editor = *window.findChild<CellEditor*>();
    GridView& view = *static_cast<GridView*>(editor.parentWidget()->parentWidget());

    CellEditorTest() {
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
    }

    QRect CellAt(int row, int col) const { return view.visualRect(view.model()->index(row - 1, col)); }
    void ClickCell(int row, int col) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, CellAt(row, col).center());
    }
    void Open() {
        ClickCell(1, 10);
        ASSERT_TRUE(editor.isVisible());
    }
    void Press(Qt::Key key) { QTest::keyClick(&editor, key); }
    std::vector<std::string> FramesAt(std::int64_t time) {
        session.line.RunUntil(time);
        return session.SentFrames();
    }
    void TurnWheelOver(QWidget& widget) {
        const QPointF place(10, 10);
        QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        // Only what comes from outside goes on to the widgets below.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&widget, &event);
    }
};

TEST_F(CellEditorTest, IsHiddenAtTheStart) { EXPECT_FALSE(editor.isVisible()); }

TEST_F(CellEditorTest, ClickOnAWritableCellOpensItOverTheCell) {
    grid.SetCell(1, 10, u"12.5");
    ClickCell(1, 10);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.text().toStdString(), "12.5");
    EXPECT_EQ(editor.selectedText().toStdString(), "12.5");
    EXPECT_EQ(QApplication::focusWidget(), &editor);
    const QRect cell = CellAt(1, 10);
    EXPECT_EQ(editor.geometry(), QRect(cell.x(), cell.y() - 1, cell.width(), cell.height() + 1));
}

TEST_F(CellEditorTest, HasABorderOfItsOwnAndItsTextStandsAtTheRight) {
    grid.SetCell(1, 10, u"1");
    ClickCell(1, 10);
    editor.deselect();
    const QImage image = editor.grab().toImage();
    for (const QPoint& place : {QPoint(1, 1), QPoint(60, 1), QPoint(60, image.height() - 2), QPoint(1, 10)})
        EXPECT_EQ(image.pixelColor(place), theme.Now().accent) << place.x() << " " << place.y();
    EXPECT_EQ(image.pixelColor(4, 10), theme.Now().surface);
    EXPECT_TRUE(editor.alignment().testFlag(Qt::AlignRight));
}

TEST_F(CellEditorTest, EmptyCellEmptiesIt) {
    grid.SetCell(1, 10, u"12.5");
    ClickCell(1, 10);
    ClickCell(2, 10);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.text().toStdString(), "");
    EXPECT_EQ(editor.geometry().bottom(), CellAt(2, 10).bottom());
    EXPECT_EQ(QApplication::focusWidget(), &editor);
}

TEST_F(CellEditorTest, KeyOnTheGridOpensItAsAClickDoes) {
    ClickCell(1, 9);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_F2);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &editor);
}

TEST_F(CellEditorTest, OpeningStopsTheSessionAndEscapeLeavesItStopped) {
    session.Start();
    session.line.RunUntil(300);
    Open();
    EXPECT_FALSE(form.IsRunning());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &view);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(FramesAt(5000).size(), 1u);
}

TEST_F(CellEditorTest, EscapeCommitsNothing) {
    Open();
    QTest::keyClicks(&editor, "200");
    Press(Qt::Key_Escape);
    EXPECT_THAT(FramesAt(5000), IsEmpty());
    EXPECT_EQ(session.Cell(1, 10), "");
}

TEST_F(CellEditorTest, TypedTextIsTheSessions) {
    Open();
    QTest::keyClicks(&editor, "20.5");
    EXPECT_EQ(ToUtf8(form.InputText.Value()), "20.5");
}

TEST_F(CellEditorTest, EnterWritesTheValueAndStartsTheSession) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        SCOPED_TRACE(key);
        const std::size_t before = session.SentFrames().size();
        Open();
        QTest::keyClicks(&editor, "200");
        Press(key);
        EXPECT_FALSE(editor.isVisible());
        EXPECT_TRUE(form.IsRunning());
        EXPECT_EQ(session.Cell(1, 10), "200");
        const auto sent = FramesAt(session.line.Time() + 400);
        ASSERT_GT(sent.size(), before);
        EXPECT_EQ(sent[before], frames::kWriteFirstRow);
        session.Stop();
    }
}

TEST_F(CellEditorTest, EnterTwiceSendsTwoWrites) {
    session.WillAnswer({frames::kTaken, frames::kTaken});
    for (int write = 1; write <= 2; ++write) {
        Open();
        QTest::keyClicks(&editor, "200");
        Press(Qt::Key_Return);
        session.line.RunUntil(session.line.Time() + 350);
    }
    EXPECT_THAT(session.SentFrames(), Contains(frames::kWriteFirstRow).Times(2));
}

// What is said under the editor of 报警值, two bytes with one decimal.
class EditorHintTest : public CellEditorTest {
  protected:
    EditorHint& hint = *static_cast<EditorHint*>(window.findChild<QFrame*>("editorHint"));

    void OpenAlarmValue() {
        form.Limits[2] = {u"-1999", u"9999"};
        ClickCell(2, 10);
        ASSERT_TRUE(editor.isVisible());
    }
    void Type(const QString& text) {
        editor.selectAll();
        QTest::keyClicks(&editor, text);
    }
    std::string Hint() const { return hint.isVisible() ? hint.Words().toStdString() : "hidden"; }
    QRect PlaceOf(const QWidget& widget) const {
        return {widget.mapTo(&window, QPoint(0, 0)), widget.size()};
    }
};

TEST_F(EditorHintTest, ShowsWhatTheRowAllowsUnderTheEditor) {
    OpenAlarmValue();
    EXPECT_EQ(Hint(), "允许 -199.9 … 999.9，小数 1 位");
    EXPECT_EQ(PlaceOf(hint).top(), PlaceOf(editor).bottom() + 3);
    EXPECT_EQ(PlaceOf(hint).right(), PlaceOf(editor).right());
    Press(Qt::Key_Escape);
    EXPECT_EQ(Hint(), "hidden");
}

TEST_F(EditorHintTest, SaysNothingOfLimitsWhereTheCatalogueHasNone) {
    Open();
    EXPECT_EQ(Hint(), "hidden");
    ClickCell(2, 10);
    EXPECT_EQ(Hint(), "小数 1 位");
}

TEST_F(EditorHintTest, NamesTheOneLimitThatThereIs) {
    form.Limits[1] = {u"", u"60"};
    Open();
    EXPECT_EQ(Hint(), "允许 … 60");
}

TEST_F(EditorHintTest, StandsAboveTheEditorNearTheBottom) {
    window.resize(1366, 470);
    QApplication::processEvents();
    const int row = view.rowAt(view.viewport()->height() - 1);
    ASSERT_GT(row, 1);
    grid.SetCell(row, 4, u"RW");
    grid.SetCell(row, 5, u"1");
    ClickCell(row, 10);
    ASSERT_TRUE(editor.isVisible());
    EXPECT_EQ(PlaceOf(hint).bottom(), PlaceOf(editor).top() - 3);
    EXPECT_EQ(PlaceOf(hint).right(), PlaceOf(editor).right());
}

// One line would have room below, all of them would not.
TEST_F(EditorHintTest, KeepsItsSideWhileTheUserTypes) {
    window.resize(1366, 600);
    QApplication::processEvents();
    const int row = view.rowAt(view.viewport()->height() - 50) + 1;
    ASSERT_GT(row, 4);
    grid.SetCell(row, 1, u"回差");
    grid.SetCell(row, 4, u"RW");
    grid.SetCell(row, 5, u"1");
    ClickCell(row, 10);
    ASSERT_TRUE(editor.isVisible());
    EXPECT_EQ(Hint(), "小数 1 位");
    EXPECT_EQ(PlaceOf(hint).bottom(), PlaceOf(editor).top() - 3);
    Type("x");
    EXPECT_EQ(Hint(), "小数 1 位；不是数值");
    EXPECT_EQ(PlaceOf(hint).bottom(), PlaceOf(editor).top() - 3);
}

TEST_F(EditorHintTest, BadTextIsObjectedToAtOnce) {
    OpenAlarmValue();
    const std::string limits = "允许 -199.9 … 999.9，小数 1 位";
    const std::vector<std::pair<QString, std::string>> rows = {
        {"999.9", ""},
        {"1000", "；超出上限"},
        {"-200", "；低于下限"},
        {"-", ""},
        {"1x", "；不是数值"},
        {"20000", "；超出上限；两字节放不下，仪表将收到 339.2"},
        {"12.34", "；小数位放不下，仪表将收到 12.3"},
        {"", ""}};
    for (const auto& [text, objection] : rows) {
        Type(text);
        if (text.isEmpty()) editor.clear();
        EXPECT_EQ(Hint(), limits + objection);
    }
}

TEST_F(EditorHintTest, OneByteHoldsTwoHundredAndFiftyFive) {
    ClickCell(4, 10);
    Type("255");
    EXPECT_EQ(Hint(), "hidden");
    Type("300");
    EXPECT_EQ(Hint(), "一字节放不下，仪表将收到 44");
}

TEST_F(EditorHintTest, FirstEnterOnABadValueWarnsAndTheSecondWrites) {
    OpenAlarmValue();
    Type("1000");
    Press(Qt::Key_Return);
    EXPECT_EQ(Hint(), "允许 -199.9 … 999.9，小数 1 位；超出上限；再按一次回车仍写入，Esc 放弃");
    EXPECT_TRUE(editor.isVisible());
    EXPECT_FALSE(form.IsRunning());
    EXPECT_EQ(session.Cell(2, 10), "");
    Press(Qt::Key_Return);
    EXPECT_EQ(Hint(), "hidden");
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(session.Cell(2, 10), "1000");
    // 10000 is 2710, low byte first.
    EXPECT_THAT(FramesAt(400), ::testing::ElementsAre("40 30 31 57 32 30 31 32 35 31 30 32 37 36 36 0D"));
}

TEST_F(EditorHintTest, AnotherTextIsWarnedOfAnew) {
    OpenAlarmValue();
    Type("1000");
    Press(Qt::Key_Return);
    Type("1001");
    EXPECT_EQ(Hint(), "允许 -199.9 … 999.9，小数 1 位；超出上限");
    Press(Qt::Key_Return);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(EditorHintTest, WhatIsNoNumberNeverLeaves) {
    Open();
    for (const char* text : {"abc", "-", ""}) {
        Type(text);
        if (*text == 0) editor.clear();
        for (int enter = 1; enter <= 2; ++enter) {
            Press(Qt::Key_Return);
            EXPECT_EQ(Hint(), "不是数值") << text;
        }
    }
    EXPECT_TRUE(session.dialogs.Shown.empty());
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &editor);
    EXPECT_EQ(session.Cell(1, 10), "");
    EXPECT_THAT(FramesAt(5000), IsEmpty());
}

TEST_F(EditorHintTest, ValueWithoutACodeNeverLeaves) {
    Open();
    Type("9999999999");
    for (int enter = 1; enter <= 2; ++enter) {
        Press(Qt::Key_Return);
        EXPECT_EQ(Hint(), "两字节放不下");
    }
    EXPECT_TRUE(session.dialogs.Shown.empty());
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(EditorHintTest, DecimalsThatWereNotReadAreSaidAndNoValueIsObjectedTo) {
    session.Add(u"仪表乙", kNativeProtocol, u"1101",
                {{u"小数点", u"0030", u"1", u"RW", u"0"}, {u"上限", u"0032", u"2", u"RW", u"0030"}});
    session.Choose(kNativeProtocol, u"仪表乙");
    window.Views().Look();
    form.Limits[2] = {u"-1999", u"9999"};
    ClickCell(2, 10);
    Type("40000");
    EXPECT_EQ(Hint(), "小数位尚未读到");
    Press(Qt::Key_Return);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_TRUE(form.IsRunning());
}

TEST_F(EditorHintTest, ProtocolThatWritesNothingIsNotObjectedTo) {
    const Text protocol(form.protocols.Of(33).name);
    session.Add(u"仪表丙", protocol, u"330100", {{u"上限", u"0010", u"2", u"RW", u"0"}});
    session.Choose(protocol, u"仪表丙");
    window.Views().Look();
    const auto before = form.CommandCode;
    ClickCell(1, 10);
    Type("abc");
    EXPECT_EQ(Hint(), "hidden");
    Press(Qt::Key_Return);
    EXPECT_EQ(form.CommandCode, before + 100);
    EXPECT_TRUE(session.dialogs.Shown.empty());
}

TEST_F(EditorHintTest, EditorIsHeardWithItsParameterAndTheHint) {
    OpenAlarmValue();
    EXPECT_EQ(editor.accessibleName().toStdString(), "修改值 报警值");
    Type("1000");
    EXPECT_EQ(editor.accessibleDescription().toStdString(), "允许 -199.9 … 999.9，小数 1 位；超出上限");
}

TEST_F(EditorHintTest, MovesWithTheEditor) {
    OpenAlarmValue();
    view.horizontalHeader()->resizeSection(1, view.columnWidth(1) - 20);
    window.Views().Look();
    EXPECT_EQ(PlaceOf(hint).right(), PlaceOf(editor).right());
}

TEST_F(CellEditorTest, EntryGoesToItsOwnCellWhereAReplyHasMovedTheCurrentOne) {
    Open();
    grid.Select(3, 6);
    QTest::keyClicks(&editor, "200");
    Press(Qt::Key_Return);
    EXPECT_EQ(session.Cell(1, 10), "200");
    EXPECT_EQ(session.Cell(3, 6), "");
    EXPECT_THAT(FramesAt(400), ::testing::ElementsAre(frames::kWriteFirstRow));
}

TEST_F(CellEditorTest, StateLineSaysThatEditingHasStoppedTheSession) {
    StateLine& state = *window.findChild<StateLine*>();
    const std::string words = "编辑时通讯已停止，回车写入并继续";
    Open();
    EXPECT_NE(state.Shown().text.toStdString(), words) << "it did not run";
    Press(Qt::Key_Escape);
    session.Start();
    Open();
    EXPECT_EQ(state.Shown().text.toStdString(), words);
    EXPECT_EQ(state.Shown().look, StateMessage::Look::Tinted);
    EXPECT_EQ(state.Shown().glyph, Glyph::Pencil);
    QTest::keyClicks(&editor, "200");
    Press(Qt::Key_Return);
    EXPECT_NE(state.Shown().text.toStdString(), words);
}

TEST_F(CellEditorTest, EditorThatIsLeftAgainLeavesAPlainStopBehind) {
    StateLine& state = *window.findChild<StateLine*>();
    const QToolButton& startButton = window.findChild<ToolBar*>()->Button(toolbar::kStartStop);
    session.Start();
    Open();
    EXPECT_EQ(LookOf(&startButton), Look::ToolBarTinted);
    Press(Qt::Key_Escape);
    EXPECT_EQ(state.Shown().head.toStdString(), "编辑时停止");
    EXPECT_EQ(state.Shown().text.toStdString(), "第 0 次之后，按 F5 继续");
    EXPECT_EQ(state.Shown().look, StateMessage::Look::Quiet);
    EXPECT_EQ(LookOf(&startButton), Look::ToolBarPrimary);
    Open();
    EXPECT_EQ(state.Shown().text.toStdString(), "编辑时通讯已停止，回车写入并继续");
    EXPECT_EQ(LookOf(&startButton), Look::ToolBarTinted);
    Press(Qt::Key_Escape);
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_TRUE(form.IsRunning());
}

TEST_F(CellEditorTest, WriteIsFollowedToItsReadBackInTheCellAndTheNote) {
    form.CommandCode = 40;
    ClickCell(1, 6);
    session.WillAnswer({frames::kTaken, frames::kFirstRowReply});
    Open();
    QTest::keyClicks(&editor, "200");
    Press(Qt::Key_Return);
    EXPECT_EQ(window.Notes().Text().toStdString(), "001 给定值：已发送 200，等待应答");
    session.line.RunUntil(1000);
    window.Views().Look();
    EXPECT_EQ(window.Notes().Text().toStdString(), "001 给定值：已写入 200，读回一致");
}

TEST_F(CellEditorTest, LossOfTheFocusHidesItAndCommitsNothing) {
    QWidget* record = window.findChild<RecordView*>();
    Open();
    QTest::keyClicks(&editor, "200");
    record->setFocus();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(session.Cell(1, 10), "");
    EXPECT_FALSE(form.IsRunning());
    EXPECT_THAT(FramesAt(5000), IsEmpty());
}

TEST_F(CellEditorTest, TabLeavesItAndHidesIt) {
    Open();
    Press(Qt::Key_Tab);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_THAT(FramesAt(5000), IsEmpty());
}

TEST_F(CellEditorTest, ItsOwnMenuLeavesItOpen) {
    Open();
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, editor.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&editor, &event);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(editor.isVisible());
    menu->close();
    EXPECT_TRUE(editor.isVisible());
}

TEST_F(CellEditorTest, ClickInsideItLeavesItOpen) {
    grid.SetCell(1, 10, u"12.5");
    Open();
    QTest::mouseClick(&editor, Qt::LeftButton);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.selectedText().toStdString(), "");
}

TEST_F(CellEditorTest, ScrollHidesIt) {
    window.resize(1400, 520);
    QApplication::processEvents();
    ASSERT_GT(view.verticalScrollBar()->maximum(), 0);
    for (QWidget* under : std::initializer_list<QWidget*>{view.viewport(), &editor}) {
        Open();
        TurnWheelOver(*under);
        EXPECT_FALSE(editor.isVisible());
        EXPECT_EQ(grid.TopRow, 2);
        view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    }
    Open();
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(CellEditorTest, FollowsItsCellWhenTheWindowOrAColumnChanges) {
    Open();
    const QRect before = editor.geometry();
    const auto expectOverTheCell = [&] {
        QApplication::processEvents();
        window.Views().Look();
        EXPECT_TRUE(editor.isVisible());
        EXPECT_EQ(editor.geometry(), CellAt(1, 10).adjusted(0, -1, 0, 0));
        EXPECT_NE(editor.geometry(), before);
    };
    window.resize(1600, 900);
    expectOverTheCell();
    window.resize(1366, 700);
    QApplication::processEvents();
    view.horizontalHeader()->resizeSection(1, view.columnWidth(1) - 20);
    expectOverTheCell();
    EXPECT_EQ(QApplication::focusWidget(), &editor);
}

TEST_F(CellEditorTest, StaysOverItsCellWhereAReplyMovesTheCurrentOne) {
    Open();
    const QRect before = editor.geometry();
    session.Form().ParameterGrid().Select(3, 6);
    window.Views().Look();
    window.Views().Look();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.geometry(), before);
}

TEST_F(CellEditorTest, StaysOverItsCellInANarrowWindow) {
    ClickCell(4, 10);
    window.resize(880, 700);
    QApplication::processEvents();
    window.Views().Look();
    ASSERT_TRUE(view.Frozen().LieOver());
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.geometry().right(), view.viewport()->width() - 1);
    EXPECT_EQ(editor.geometry(), CellAt(4, 10).adjusted(0, -1, 0, 0));
}

TEST_F(CellEditorTest, HidesWhenItsCellLeavesTheView) {
    ClickCell(4, 10);
    ASSERT_TRUE(editor.isVisible());
    QTest::keyClicks(&editor, "3");
    view.FilterBy("给定");
    window.Views().Look();
    ASSERT_FALSE(view.viewport()->rect().intersects(CellAt(4, 10)));
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &view);
    EXPECT_EQ(session.Cell(4, 10), "");
    EXPECT_THAT(FramesAt(5000), IsEmpty());
}

TEST_F(CellEditorTest, ClickInAnotherColumnHidesIt) {
    Open();
    ClickCell(1, 7);
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(CellEditorTest, GridGoesOnWithTheKeyboardAfterAnEntry) {
    Open();
    QTest::keyClicks(&editor, "200");
    Press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &view);
}

}  // namespace
}  // namespace commtest::testing
