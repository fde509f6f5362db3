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

#include "window/grid_view.h"
#include "window/main_window.h"
#include "window/record_view.h"
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
        theme.Dress();
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

TEST_F(CellEditorTest, EntryThatIsNoNumberIsToldAndNothingIsSent) {
    Open();
    QTest::keyClicks(&editor, "abc");
    Press(Qt::Key_Return);
    ASSERT_EQ(session.dialogs.Shown.size(), 1u);
    EXPECT_EQ(session.dialogs.Shown[0].number, 13);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &editor);
    EXPECT_THAT(FramesAt(5000), IsEmpty());
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

TEST_F(CellEditorTest, HidesWhenItsCellLeavesTheView) {
    ClickCell(4, 10);
    ASSERT_TRUE(editor.isVisible());
    QTest::keyClicks(&editor, "3");
    window.resize(880, 446);
    QApplication::processEvents();
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
