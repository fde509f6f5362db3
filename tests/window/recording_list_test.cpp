#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

#include "window/grid_view_bench.h"
#include "window/recorded_bench.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;

class RecordingListTest : public GridViewTest {
  protected:
    GridView* listView = nullptr;

    RecordingListTest() {
        for (const auto* note : {u"A", u"B", u"C"}) {
            AddRecorded(bench.session, note, frames::kReadDynamic, frames::kDynamicReply);
        }
        form.SSTab2.Choose(3);
        listView = Add(2);
        Look();
    }

    Grid& List() { return form.MSHFlexGrid1[2]; }
    std::vector<std::string> Notes() {
        std::vector<std::string> notes;
        for (int row = 1; row < List().Rows(); ++row) notes.push_back(ToUtf8(List().Cell(row, 3)));
        return notes;
    }
    QPoint PlaceInList(int row) const {
        return listView->visualRect(listView->model()->index(row - 1, 2)).center();
    }
    void ClickList(int row) { QTest::mouseClick(listView->viewport(), Qt::LeftButton, {}, PlaceInList(row)); }
    static void Choose(const QString& caption) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text() == caption) action->trigger();
        }
        menu->close();
    }
    void AskMenuOf(int row) { AskMenuAt(PlaceInList(row)); }
    void AskMenuAt(QPoint place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, listView->viewport()->mapToGlobal(place));
        QApplication::sendEvent(listView->viewport(), &event);
    }
    // Of the menu that stands: a separator is empty, what is dimmed is in brackets.
    static std::vector<std::string> Entries() {
        std::vector<std::string> entries;
        for (const QAction* action : QApplication::activePopupWidget()->actions()) {
            const std::string caption = action->text().toStdString();
            entries.push_back(action->isEnabled() || caption.empty() ? caption : "(" + caption + ")");
        }
        return entries;
    }
};

TEST_F(RecordingListTest, ClickChoosesTheInstrumentOfTheRowAndTheFirstPage) {
    bench.session.Choose(kNativeProtocol, kLongInstrument);
    ClickList(2);
    EXPECT_EQ(List().Row, 2);
    EXPECT_EQ(ToUtf8(form.InstrumentName()), "仪表甲");
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
}

TEST_F(RecordingListTest, SecondClickLoadsTheScriptOfTheRowAgain) {
    bench.binder.Event([this] { form.ConMyCommDriver.Set(true); });
    ClickList(2);
    EXPECT_EQ(form.DemoFrames.size(), 1U);
    form.DemoIndex = 0;
    form.SSTab2.Choose(3);
    Look();
    ClickList(2);
    EXPECT_EQ(form.DemoIndex, 1);
    EXPECT_EQ(form.SSTab2.Chosen(), 3);
}

TEST_F(RecordingListTest, EntryChangesTheRowUnderThePointer) {
    bench.session.dialogs.Answers = {u"plant"};
    List().Select(1, 1);
    AskMenuOf(2);
    Choose("更改说明");
    EXPECT_THAT(Notes(), ElementsAre("A", "C", "PLANT"));
    EXPECT_EQ(List().Row, 1);
}

TEST_F(RecordingListTest, EntryByTheKeyboardChangesTheCurrentRow) {
    bench.session.dialogs.Answers = {u"yes"};
    List().Select(3, 1);
    Look();
    QTest::keyClick(listView, Qt::Key_F10, Qt::ShiftModifier);
    Choose("删除......");
    EXPECT_EQ(bench.session.dialogs.Texts().back(),
              "你确定要删除 仪表名称是 <仪表甲> ,说明是 <C> 的演示数据吗？");
    EXPECT_THAT(Notes(), ElementsAre("A", "B"));
}

TEST_F(RecordingListTest, EntryAsksForANameOfTheInstrument) {
    bench.session.dialogs.Answers = {u"new"};
    AskMenuOf(1);
    Choose("更改名称");
    EXPECT_EQ(ToUtf8(List().Cell(1, 2)), "NEW");
}

TEST_F(RecordingListTest, EntryShowsWhatHasBeenCapturedSince) {
    AddRecorded(bench.session, u"D", frames::kReadDynamic, frames::kDynamicReply);
    AskMenuOf(1);
    Choose("刷新......");
    EXPECT_THAT(Notes(), ElementsAre("A", "B", "C", "D"));
}

TEST_F(RecordingListTest, AddedEntriesStandBelowTheFixedOnesAndGetTheRow) {
    int row = -1;
    listView->AddToMenu(
        {{"甲......", true, [&row](int under) { row = under; }}, {"乙......", false, [](int) {}}});
    AskMenuOf(2);
    EXPECT_THAT(Entries(), ElementsAre("更改名称", "更改说明", "", "删除......", "", "刷新......", "",
                                       "甲......", "乙......"));
    Choose("甲......");
    EXPECT_EQ(row, 2);
}

TEST_F(RecordingListTest, AddedEntryThatTakesARowIsDimmedBesideTheRows) {
    listView->AddToMenu({{"甲......", true, [](int) {}}, {"乙......", false, [](int) {}}});
    AskMenuAt(listView->viewport()->rect().bottomLeft());
    const std::vector<std::string> entries = Entries();
    EXPECT_EQ(entries[entries.size() - 2], "(甲......)");
    EXPECT_EQ(entries.back(), "乙......");
    QApplication::activePopupWidget()->close();
}

}  // namespace
}  // namespace commtest::testing
