#include "window/note_bar.h"

#include <gtest/gtest.h>

#include <QTest>

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
    EXPECT_EQ(Action().text().toStdString(), "撤销 (10)");
    EXPECT_EQ(Action().accessibleName().toStdString(), "撤销");
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

TEST_F(NoteBarTest, LongWordIsCutOffAndWholeInItsTip) {
    const QString word(200, u'字');
    notes.Say(word);
    EXPECT_LT(Words()->text().size(), 100);
    EXPECT_EQ(Words()->toolTip(), word);
    EXPECT_EQ(Words()->accessibleName(), word);
}

}  // namespace
}  // namespace commtest::testing
