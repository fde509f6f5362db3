#include "window/record_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include "window/emptied_record.h"
#include "window/note_bar.h"
#include "window/paint_watch.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A change of the text, as the document tells it.
struct Change {
    int position;
    int removed;
    int added;
    bool operator==(const Change&) const = default;
};

Text NumberedBlock(int number) {
    const Text digits = FromUtf8(std::to_string(number));
    return u"第 " + digits + u" 次, 向 仪表甲 发送: 40 30 31 52 44 31 37 0D   收到:\r\n40 30 31\r\n" +
           u"CRC校验正确  读取\r\n\r\n";
}

class RecordViewTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QWidget window;
    RecordPane& pane = bench.Form().ConCommString[1];
    RecordView* view = MakeCommPane(bench.binder, bench.theme, 1, &window);
    NoteBar notes{bench.theme};

    RecordViewTest() {
        new EmptiedRecord(bench.binder, notes, *view);
        view->setGeometry(0, 0, 300, 200);
        window.resize(300, 200);
        window.show();
        QObject::connect(view->document(), &QTextDocument::contentsChange,
                         [this](int position, int removed, int added) {
                             changes.push_back({position, removed, added});
                         });
    }

    void PutOnTop(int first, int last) {
        for (int number = first; number <= last; ++number) pane.PutOnTop({NumberedBlock(number)});
    }

    void ShowBlocks(int count) {
        PutOnTop(1, count);
        bench.binder.Look();
        changes.clear();
    }

    std::string ShownText() const { return view->toPlainText().toStdString(); }
    std::string FirstLineInView() const {
        return view->cursorForPosition(QPoint(10, 4)).block().text().toStdString();
    }

    void Press(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(view->viewport(), button, {}, place);
    }
    void Release(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(view->viewport(), button, {}, place);
    }
    void Move(QPoint place) {
        QMouseEvent move(QEvent::MouseMove, place, view->viewport()->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &move);
    }

    std::vector<Change> changes;
};

TEST_F(RecordViewTest, BlocksStandNewestFirstWithPlainLineEnds) {
    pane.PutOnTop({u"甲\r\n乙\r\n\r\n"});
    pane.PutOnTop({u"丙\r\n\r\n"});
    bench.binder.Look();
    EXPECT_EQ(ShownText(), "丙\n\n甲\n乙\n\n");
}

TEST_F(RecordViewTest, RecordThatStandsAtTheStartIsShown) {
    pane.PutOnTop({u"甲\r\n"});
    RecordView late(bench.binder, bench.theme, pane, &window);
    EXPECT_EQ(late.toPlainText().toStdString(), "甲\n");
}

TEST_F(RecordViewTest, BlocksOfALookAreOneInsertionAtTheTop) {
    ShowBlocks(2);
    pane.PutOnTop({u"甲\r\n"});
    pane.PutOnTop({u"乙\r\n"});
    bench.binder.Look();
    EXPECT_THAT(changes, ElementsAre(Change{0, 0, 4}));
    EXPECT_EQ(ShownText().substr(0, 8), "乙\n甲\n");
}

TEST_F(RecordViewTest, LookAtAnUnchangedRecordTouchesNothing) {
    ShowBlocks(2);
    bench.binder.Look();
    pane.SetEnabled(true);
    bench.binder.Look();
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(RecordViewTest, BlockOnTopOfFiftyLeavesTheOthersLaidOut) {
    ShowBlocks(50);
    view->resize(300, 20000);
    view->grab();
    const int blocks = view->blockCount();
    ASSERT_EQ(blocks, 50 * 4 + 1);
    pane.PutOnTop({NumberedBlock(51)});
    bench.binder.Look();
    int laidOut = 0;
    for (QTextBlock block = view->document()->begin(); block.isValid(); block = block.next())
        laidOut += block.layout()->lineCount() > 0 ? 1 : 0;
    EXPECT_GE(laidOut, blocks);  // all but the four new ones
}

TEST_F(RecordViewTest, TextWithoutALineEndStandsInFrontOfTheFirstLine) {
    ShowBlocks(1);
    pane.PutOnTop({u"甲"});
    bench.binder.Look();
    EXPECT_EQ(ShownText().substr(0, 7), "甲第 ");
}

TEST_F(RecordViewTest, EmptiedRecordIsShownAnew) {
    ShowBlocks(3);
    pane.Clear();
    bench.binder.Look();
    EXPECT_EQ(ShownText(), "");
    pane.PutOnTop({u"甲\r\n"});
    bench.binder.Look();
    EXPECT_EQ(ShownText(), "甲\n");
}

TEST_F(RecordViewTest, RecordEmptiedAndFilledBetweenTwoLooksShowsOnlyTheNewBlocks) {
    ShowBlocks(2);
    pane.Clear();
    for (const TextView block : {u"甲\r\n", u"乙\r\n", u"丙\r\n"}) pane.PutOnTop({Text(block)});
    bench.binder.Look();
    EXPECT_EQ(ShownText(), "丙\n乙\n甲\n");
    pane.PutOnTop({u"丁\r\n"});
    bench.binder.Look();
    EXPECT_EQ(ShownText(), "丁\n丙\n乙\n甲\n");
}

TEST_F(RecordViewTest, ViewAtTheTopStaysThere) {
    ShowBlocks(50);
    PutOnTop(51, 52);
    bench.binder.Look();
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
    EXPECT_EQ(FirstLineInView().substr(0, 7), "第 52 ");
}

TEST_F(RecordViewTest, ScrolledViewKeepsItsPlaceInTheText) {
    ShowBlocks(50);
    view->grab();
    for (const int start : {1, 40, 41}) {
        view->verticalScrollBar()->setValue(start);
        const std::string line = FirstLineInView();
        const int column = view->cursorForPosition(QPoint(10, 4)).positionInBlock();
        PutOnTop(51, 53);
        bench.binder.Look();
        view->grab();
        EXPECT_EQ(FirstLineInView(), line) << start;
        EXPECT_EQ(view->cursorForPosition(QPoint(10, 4)).positionInBlock(), column) << start;
    }
}

TEST_F(RecordViewTest, BlockOnTopPaintsItsOwnLinesAndNothingBehindThem) {
    window.resize(300, 600);
    view->resize(300, 600);
    ShowBlocks(50);
    PaintWhatIsDue(window);
    const PaintWatch lines(*view->viewport());
    const PaintWatch behind(window);
    PutOnTop(51, 51);
    bench.binder.Look();
    PaintWhatIsDue(window);
    const int formerTop = view->cursorRect(QTextCursor(view->document()->findBlockByNumber(4))).top();
    EXPECT_EQ(lines.Painted().boundingRect(), QRect(0, 0, view->viewport()->width(), formerTop));
    EXPECT_TRUE((behind.Painted() & view->viewport()->geometry()).isEmpty());
}

TEST_F(RecordViewTest, ScrollBarIsPaintedOnlyWhenItsSliderHasMoved) {
    window.resize(900, 200);
    view->resize(900, 200);
    ShowBlocks(2);
    PaintWhatIsDue(window);
    const PaintWatch few(*view->verticalScrollBar());
    PutOnTop(3, 4);
    bench.binder.Look();
    PaintWhatIsDue(window);
    EXPECT_FALSE(few.Painted().isEmpty());
    PutOnTop(5, 2000);
    bench.binder.Look();
    PaintWhatIsDue(window);
    const int maximum = view->verticalScrollBar()->maximum();
    const PaintWatch many(*view->verticalScrollBar());
    PutOnTop(2001, 2001);
    bench.binder.Look();
    PaintWhatIsDue(window);
    EXPECT_TRUE(many.Painted().isEmpty());
    EXPECT_GT(view->verticalScrollBar()->maximum(), maximum);
}

TEST_F(RecordViewTest, FramesAreLaidOutLetterByLetter) {
    EXPECT_TRUE(view->font().styleStrategy() & QFont::PreferNoShaping);
}

TEST_F(RecordViewTest, LinesThatHaveTravelledStandWhereTheyWouldBePainted) {
    for (int number = 1; number <= 6; ++number) {
        PutOnTop(number, number);
        bench.binder.Look();
        PaintWhatIsDue(window);
        EXPECT_EQ(OnTheScreen(window), PaintedAnew(window)) << number;
    }
    PutOnTop(7, 30);
    bench.binder.Look();
    PaintWhatIsDue(window);
    EXPECT_EQ(OnTheScreen(window), PaintedAnew(window)) << "more than there is room for";
    view->verticalScrollBar()->setValue(7);
    PutOnTop(31, 31);
    bench.binder.Look();
    PaintWhatIsDue(window);
    EXPECT_EQ(OnTheScreen(window), PaintedAnew(window)) << "in the midst of the text";
}

TEST_F(RecordViewTest, SelectionStaysOnItsText) {
    pane.PutOnTop({u"甲乙丙\r\n"});
    bench.binder.Look();
    QTextCursor cursor = view->textCursor();
    cursor.setPosition(1);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    view->setTextCursor(cursor);
    pane.PutOnTop({u"丁丁丁丁\r\n"});
    bench.binder.Look();
    EXPECT_EQ(view->textCursor().selectedText().toStdString(), "乙丙");
}

TEST_F(RecordViewTest, IsToReadOnlyAndKeepsNoSteps) {
    ShowBlocks(1);
    QTest::keyClicks(view, "x");
    EXPECT_EQ(ShownText().find('x'), std::string::npos);
    EXPECT_FALSE(view->document()->isUndoRedoEnabled());
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(view->document()->documentMargin(), 8);
    EXPECT_EQ(view->document()->maximumBlockCount(), 0);
}

TEST_F(RecordViewTest, LongLineIsWrappedWithinTheView) {
    pane.PutOnTop({Text(300, u'7')});
    bench.binder.Look();
    view->grab();
    EXPECT_GT(view->document()->firstBlock().layout()->lineCount(), 3);
}

TEST_F(RecordViewTest, ClickOnTheRecordEmptiesIt) {
    ShowBlocks(3);
    Press({50, 30});
    EXPECT_EQ(pane.Blocks().size(), 3u);
    Release({52, 32});
    EXPECT_TRUE(pane.Blocks().empty());
    EXPECT_EQ(ShownText(), "");
}

TEST_F(RecordViewTest, ReleaseFivePixelsAwayIsNoClick) {
    ShowBlocks(3);
    Press({50, 190});
    Release({55, 190});
    EXPECT_EQ(pane.Blocks().size(), 3u);
}

TEST_F(RecordViewTest, DragSelectsAndIsNoClick) {
    ShowBlocks(3);
    Press({20, 15});
    Move({120, 15});
    Release({120, 15});
    EXPECT_EQ(pane.Blocks().size(), 3u);
    EXPECT_TRUE(view->textCursor().hasSelection());
}

TEST_F(RecordViewTest, DragThatSelectsWithinThreePixelsIsNoClick) {
    ShowBlocks(3);
    const QRect before = view->cursorRect(QTextCursor(view->document()->findBlockByNumber(1)));
    const int y = before.center().y();
    QTextCursor second(view->document()->findBlockByNumber(1));
    second.movePosition(QTextCursor::Right);
    const int boundary = (before.left() + view->cursorRect(second).left()) / 2;
    Press({boundary - 1, y});
    Move({boundary + 2, y});
    ASSERT_TRUE(view->textCursor().hasSelection());
    Release({boundary + 2, y});
    EXPECT_EQ(pane.Blocks().size(), 3u);
}

TEST_F(RecordViewTest, DragOutAndBackIsNoClick) {
    ShowBlocks(3);
    Press({20, 15});
    Move({120, 15});
    Move({20, 15});
    Release({20, 15});
    EXPECT_EQ(pane.Blocks().size(), 3u);
}

TEST_F(RecordViewTest, ClickThatDropsASelectionIsNoClickOnTheRecord) {
    ShowBlocks(3);
    view->selectAll();
    Press({50, 30});
    Release({50, 30});
    EXPECT_EQ(pane.Blocks().size(), 3u);
    EXPECT_FALSE(view->textCursor().hasSelection());
    Press({50, 30});
    Release({50, 30});
    EXPECT_TRUE(pane.Blocks().empty());
}

TEST_F(RecordViewTest, ReleaseWithoutAPressOfItsOwnIsNoClick) {
    ShowBlocks(3);
    Release({50, 30});
    EXPECT_EQ(pane.Blocks().size(), 3u);
    Press({50, 30});
    Release({50, 30});
    ShowBlocks(3);
    Release({50, 30});
    EXPECT_EQ(pane.Blocks().size(), 3u);
}

TEST_F(RecordViewTest, OtherButtonsDoNotEmptyTheRecord) {
    ShowBlocks(3);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        Press({50, 30}, button);
        Release({50, 30}, button);
    }
    EXPECT_EQ(pane.Blocks().size(), 3u);
}

TEST_F(RecordViewTest, ClickOnTheConversionTextsDoesNothing) {
    RecordPane& texts = bench.Form().ConCommString[0];
    texts.PutOnTop({u"甲\r\n"});
    RecordView* conversion = MakeCommPane(bench.binder, bench.theme, 0, &window);
    conversion->setGeometry(0, 0, 300, 200);
    ShowBlocks(1);
    QTest::mouseClick(conversion->viewport(), Qt::LeftButton, {}, QPoint(50, 30));
    EXPECT_EQ(texts.Blocks().size(), 1u);
    EXPECT_EQ(pane.Blocks().size(), 1u);
    EXPECT_EQ(conversion->toPlainText().toStdString(), "甲\n");
}

TEST_F(RecordViewTest, KeysSelectAllAndCopy) {
    pane.PutOnTop({u"甲\r\n乙"});
    bench.binder.Look();
    QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "甲\n乙");
}

TEST_F(RecordViewTest, MenuCopiesAndSelects) {
    const auto askMenu = [this] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 10}, view->mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(view->viewport(), &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    };
    QMenu* menu = askMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions()[0]->text().toStdString(), "复制");
    EXPECT_EQ(menu->actions()[1]->text().toStdString(), "全选");
    EXPECT_FALSE(menu->actions()[0]->isEnabled());
    EXPECT_FALSE(menu->actions()[1]->isEnabled());
    menu->close();

    pane.PutOnTop({u"甲乙"});
    bench.binder.Look();
    menu = askMenu();
    menu->actions()[1]->trigger();
    menu->close();
    menu = askMenu();
    menu->actions()[0]->trigger();
    menu->close();
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "甲乙");
}

TEST_F(RecordViewTest, BlockThatStoppedTheSessionHasABar) {
    auto stopping = std::make_shared<Outcome>();
    stopping->verdict.stopsSession = true;
    pane.PutOnTop({u"甲\r\n甲\r\n", {}, stopping});
    pane.PutOnTop({u"乙\r\n", {}, std::make_shared<Outcome>()});
    bench.binder.Look();
    const auto besideLine = [this](int line) {
        const QRect place = view->cursorRect(QTextCursor(view->document()->findBlockByNumber(line)));
        return view->viewport()->grab().toImage().pixelColor(1, place.center().y());
    };
    const Tokens& tokens = bench.theme.Now();
    EXPECT_EQ(besideLine(0), tokens.surface);
    EXPECT_EQ(besideLine(1), tokens.warn);
    EXPECT_EQ(besideLine(2), tokens.warn);
    EXPECT_EQ(besideLine(3), tokens.surface);
    bench.theme.Use(Theme::Choice::Dark);
    EXPECT_EQ(besideLine(1), kDarkTokens.warn);
    pane.PutOnTop({u"丙\r\n"});
    bench.binder.Look();
    EXPECT_EQ(besideLine(1), kDarkTokens.surface);
    EXPECT_EQ(besideLine(2), kDarkTokens.warn);
}

TEST_F(RecordViewTest, LayoutOfThePanesHidesAndShowsIt) {
    pane.SetVisible(false);
    bench.binder.Look();
    EXPECT_FALSE(view->isVisible());
    pane.PutOnTop({u"甲"});
    pane.SetVisible(true);
    bench.binder.Look();
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(ShownText(), "甲");
}

}  // namespace
}  // namespace commtest::testing
