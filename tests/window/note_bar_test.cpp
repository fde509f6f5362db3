#include "window/note_bar.h"

#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class NoteBarTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NoteBar notes{bench.theme};
    int ends = 0;

    NoteBarTest() {
        notes.resize(400, 24);
        notes.show();
        QObject::connect(&notes, &NoteBar::Ended, [this] { ++ends; });
    }

    QPushButton& Action() { return *notes.findChild<QPushButton*>(); }
    QLabel* Label(const QString& text) {
        for (QLabel* label : notes.findChildren<QLabel*>()) {
            if (label->text() == text) return label;
        }
        return nullptr;
    }
    bool Shows(const QString& text) { return Label(text) != nullptr && Label(text)->isVisible(); }
    QLabel* Words() {
        for (QLabel* label : notes.findChildren<QLabel*>()) {
            if (!label->text().isEmpty()) return label;
        }
        return nullptr;
    }
};

TEST_F(NoteBarTest, WordIsShownAndGoesWithAClick) {
    notes.Say("已存");
    EXPECT_EQ(notes.Text().toStdString(), "已存");
    EXPECT_EQ(Words()->text().toStdString(), "已存");
    EXPECT_FALSE(Action().isVisible());
    QTest::mousePress(&notes, Qt::LeftButton);
    EXPECT_EQ(notes.Text().toStdString(), "");
    EXPECT_EQ(Words(), nullptr);
    EXPECT_EQ(ends, 1);
}

TEST_F(NoteBarTest, OfferCanBeTakenOnce) {
    int taken = 0;
    notes.Offer("已清空通讯记录", "撤销", [&] { ++taken; });
    EXPECT_TRUE(notes.HasOffer());
    EXPECT_TRUE(Action().isVisible());
    EXPECT_EQ(Action().text().toStdString(), "撤销");
    EXPECT_TRUE(Shows("10 秒"));
    Action().click();
    EXPECT_EQ(taken, 1);
    EXPECT_FALSE(notes.HasOffer());
    EXPECT_EQ(notes.Text().toStdString(), "");
    notes.TakeOffer();
    EXPECT_EQ(taken, 1);
}

TEST_F(NoteBarTest, AnotherWordEndsAnOffer) {
    int taken = 0;
    notes.Offer("已清空通讯记录", "撤销", [&] { ++taken; });
    notes.Warn("写不进去");
    EXPECT_FALSE(notes.HasOffer());
    EXPECT_FALSE(Action().isVisible());
    notes.TakeOffer();
    EXPECT_EQ(taken, 0);
    notes.WithdrawOffer();
    EXPECT_EQ(notes.Text().toStdString(), "写不进去");
}

TEST_F(NoteBarTest, OfferThatIsVoidIsWithdrawn) {
    notes.Offer("已清空通讯记录", "撤销", [] {});
    notes.WithdrawOffer();
    EXPECT_EQ(notes.Text().toStdString(), "");
    EXPECT_FALSE(notes.HasOffer());
}

TEST_F(NoteBarTest, QuestionStaysUntilItsOwnButtonIsPressed) {
    int taken = 0;
    notes.Ask("COM1 已恢复", Glyph::Plug, "继续", [&] { ++taken; });
    EXPECT_TRUE(notes.Asks());
    EXPECT_FALSE(notes.HasOffer());
    EXPECT_EQ(Action().text().toStdString(), "继续");
    notes.TakeOffer();  // the key that undoes
    notes.WithdrawOffer();
    QTest::mousePress(&notes, Qt::LeftButton);
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(notes.Text().toStdString(), "COM1 已恢复");
    Action().click();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(NoteBarTest, QuestionThatIsVoidIsWithdrawnAndAnotherWordStays) {
    notes.Ask("COM1 已恢复", Glyph::Plug, "继续", [] {});
    notes.WithdrawQuestion();
    EXPECT_EQ(notes.Text().toStdString(), "");
    notes.Offer("已清空通讯记录", "撤销", [] {});
    notes.WithdrawQuestion();
    EXPECT_EQ(notes.Text().toStdString(), "已清空通讯记录");
}

TEST_F(NoteBarTest, ActionStandsBesideTheWordsAndTheSecondsBehindIt) {
    notes.Offer("计数已清零", "撤销", [] {});
    const QRect words = Words()->geometry();
    EXPECT_EQ(Words()->text().toStdString(), "计数已清零");
    EXPECT_EQ(Action().x(), words.right() + 1 + 4);
    EXPECT_LT(Action().geometry().right(), 200);
    EXPECT_EQ(Label("10 秒")->x(), Action().geometry().right() + 1 + 4);
    notes.resize(150, 24);
    EXPECT_EQ(Action().x(), Words()->geometry().right() + 1 + 4);
    EXPECT_LE(Label("10 秒")->geometry().right(), 150);
}

TEST_F(NoteBarTest, LinePartsAWordFromWhatStandsInFront) {
    const QList<QFrame*> frames = notes.findChildren<QFrame*>();
    const QFrame* edge = *std::ranges::find_if(
        frames, [](const QFrame* frame) { return frame->backgroundRole() == kLineRole; });
    EXPECT_FALSE(edge->isVisible());
    notes.Say("已存");
    EXPECT_TRUE(edge->isVisible());
    EXPECT_LT(edge->x(), Words()->x());
    QTest::mousePress(&notes, Qt::LeftButton);
    EXPECT_FALSE(edge->isVisible());
}

TEST_F(NoteBarTest, OnlyAFailureIsInTheColourOfFailures) {
    const auto isFailure = [this] { return Words()->foregroundRole() == kFailureRole; };
    notes.Say("已存");
    EXPECT_FALSE(isFailure());
    notes.Warn("写不进去");
    EXPECT_TRUE(isFailure());
    notes.Say("已存");
    EXPECT_FALSE(isFailure());
}

TEST_F(NoteBarTest, LongWordIsCutOffAndWholeInItsTip) {
    const QString word(200, u'字');
    notes.Say(word);
    EXPECT_LT(Words()->text().size(), 100);
    EXPECT_EQ(Words()->toolTip(), word);
    EXPECT_EQ(Words()->accessibleName(), word);
}

}  // namespace
}  // namespace commtest::testing
