#include "window/deleted_pairs.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_lists.h"
#include "window/recordings_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

const std::string kTold = "说明 PLANT 下有 2 条已删除，应答相同的不再存入";

class DeletedPairsTest : public ::testing::Test, protected RecordingsBench {
  protected:
    DeletedPairs deleted{bench.binder, notes, &window};

    DeletedPairsTest() { Store().SetValid(u"仪表甲", u"PLANT", false); }

    void Capture(const Text& note) {
        Form().CaptureNote = note;
        Tick(true);
    }
    void Tick(bool isOn) {
        bench.binder.Event([&] { Form().ConSaveData.Set(isOn); });
    }
};

TEST_F(DeletedPairsTest, CaptureUnderANoteThatHasSomeIsToldAndBringsThemBack) {
    bench.binder.Event([this] { Form().SSTab2.Choose(0); });
    Capture(u"PLANT");
    EXPECT_EQ(Note(), kTold);
    FindButton(notes, "恢复")->click();
    EXPECT_EQ(Count(u"PLANT").deleted, 0);
    EXPECT_EQ(Note(), "已恢复 2 条：仪表甲，PLANT");
}

TEST_F(DeletedPairsTest, ListShowsAtOnceWhatHasComeBack) {
    AddRecorded(bench.session, u"OTHER", "40", "41");
    bench.binder.Event([this] { SSTab2_Click(Form()); });
    EXPECT_EQ(Form().MSHFlexGrid1[2].Rows(), 2);
    Capture(u"PLANT");
    FindButton(notes, "恢复")->click();
    EXPECT_EQ(Listed(2, 3), "PLANT");
}

TEST_F(DeletedPairsTest, NoteThatIsTypedForTheCaptureIsLookedAt) {
    Tick(true);
    EXPECT_EQ(Note(), "");
    bench.session.dialogs.Answers = {u"plant"};
    bench.session.AnswersEachFrame(frames::kDynamicReply);
    Form().CommandCode = 10;
    bench.session.Start();
    bench.session.line.RunUntil(700);
    bench.binder.Look();
    EXPECT_EQ(Note(), kTold);
}

TEST_F(DeletedPairsTest, NoteWithoutDeletedPairsIsNotToldOf) {
    Capture(u"OTHER");
    EXPECT_EQ(Note(), "");
    Store().SetValid(u"仪表甲", u"PLANT", true);
    Capture(u"PLANT");
    EXPECT_EQ(Note(), "");
}

TEST_F(DeletedPairsTest, EndOfTheCaptureWithdrawsTheQuestionAndTheNextOneAsksAgain) {
    Capture(u"PLANT");
    Tick(false);
    EXPECT_EQ(Note(), "");
    Tick(true);
    EXPECT_EQ(Note(), kTold);
}

TEST_F(DeletedPairsTest, OtherWordsOfTheNoteBarStay) {
    Capture(u"PLANT");
    notes.Say("别的");
    Tick(false);
    EXPECT_EQ(Note(), "别的");
}

TEST_F(DeletedPairsTest, NothingIsBroughtBackWhileTheStoreIsWithinAnothersTransaction) {
    deleted.TellBehind("别的", u"仪表甲", u"PLANT");
    EXPECT_EQ(Note(), "别的；此说明下有 2 条已删除，应答相同的不再存入");
    Form().CaptureWaits = true;
    bench.binder.Look();
    EXPECT_EQ(Note(), "");
}

TEST_F(DeletedPairsTest, CaptureThatWaitsForTheStoreIsLookedAtBehindIt) {
    Form().CaptureWaits = true;
    Capture(u"PLANT");
    EXPECT_EQ(Note(), "");
    Form().CaptureWaits = false;
    bench.binder.Look();
    EXPECT_EQ(Note(), kTold);
    Form().CaptureWaits = true;
    bench.binder.Look();
    EXPECT_EQ(Note(), "");
    Form().CaptureWaits = false;
    bench.binder.Look();
    EXPECT_EQ(Note(), kTold);
}

}  // namespace
}  // namespace commtest::testing
