#include "window/emptied_record.h"

#include <gtest/gtest.h>

#include <QTest>

#include "window/note_bar.h"
#include "window/record_view.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class EmptiedRecordTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NoteBar notes{bench.theme};
    RecordPane& pane = bench.Form().Record();
    RecordView* view = MakeCommPane(bench.binder, bench.theme, 1, &notes);

    EmptiedRecordTest() { new EmptiedRecord(bench.binder, notes, *view); }

    void Put(TextView text) {
        pane.PutOnTop({Text(text)});
        bench.binder.Look();
    }
    void Empty() { QTest::keyClick(view, Qt::Key_Delete); }
    std::string Record() const { return ToUtf8(pane.WholeText()); }
};

TEST_F(EmptiedRecordTest, IsSaidWithAWayBack) {
    Put(u"甲\r\n");
    Empty();
    EXPECT_EQ(Record(), "");
    EXPECT_EQ(notes.Text().toStdString(), "已清空通讯记录");
    EXPECT_TRUE(notes.HasOffer());
}

TEST_F(EmptiedRecordTest, BlocksComeBackUnderTheNewerOnes) {
    Put(u"甲\r\n");
    Put(u"乙\r\n");
    Empty();
    Put(u"丙\r\n");
    notes.TakeOffer();
    EXPECT_EQ(Record(), "丙\r\n乙\r\n甲\r\n");
    EXPECT_EQ(view->toPlainText().toStdString(), "丙\n乙\n甲\n");
    EXPECT_FALSE(notes.HasOffer());
}

TEST_F(EmptiedRecordTest, EmptyRecordKeepsTheOfferOfTheFirstClick) {
    Put(u"甲\r\n");
    Empty();
    Empty();
    notes.TakeOffer();
    EXPECT_EQ(Record(), "甲\r\n");
}

TEST_F(EmptiedRecordTest, NothingIsOfferedForAnEmptyRecord) {
    Empty();
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(EmptiedRecordTest, EmptiedTwiceBothPartsComeBack) {
    Put(u"甲\r\n");
    Empty();
    Put(u"乙\r\n");
    Empty();
    Put(u"丙\r\n");
    notes.TakeOffer();
    EXPECT_EQ(Record(), "丙\r\n乙\r\n甲\r\n");
}

TEST_F(EmptiedRecordTest, EmptyingByTheSessionEndsTheOffer) {
    Put(u"甲\r\n");
    Empty();
    Put(u"乙\r\n");
    pane.Clear();
    bench.binder.Look();
    EXPECT_FALSE(notes.HasOffer());
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(EmptiedRecordTest, EmptyingByTheSessionLeavesAnotherOffer) {
    Put(u"甲\r\n");
    Empty();
    notes.Offer("计数已清零", "撤销", [] {});
    pane.Clear();
    bench.binder.Look();
    EXPECT_EQ(notes.Text().toStdString(), "计数已清零");
}

TEST_F(EmptiedRecordTest, WhatAnotherNoteHasReplacedDoesNotComeBackLater) {
    Put(u"甲\r\n");
    Empty();
    notes.Say("已存");
    bench.binder.Look();
    Put(u"乙\r\n");
    Empty();
    notes.TakeOffer();
    EXPECT_EQ(Record(), "乙\r\n");
}

// The fiftieth frame empties the record.
TEST_F(EmptiedRecordTest, FiftiethFrameEndsTheOffer) {
    bench.session.AnswersEachFrame(frames::kDynamicReply);
    bench.session.Start();
    bench.session.line.RunWhile([this] { return bench.Form().SendCount < 49; }, 60000);
    bench.binder.Look();
    Empty();
    ASSERT_TRUE(notes.HasOffer());
    bench.session.line.RunWhile([this] { return bench.Form().SendCount < 51; }, 60000);
    bench.binder.Look();
    EXPECT_FALSE(notes.HasOffer());
}

}  // namespace
}  // namespace commtest::testing
