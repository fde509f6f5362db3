#include "window/recording_messages.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "commands/list_clicks.h"
#include "window/recorded_bench.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class RecordingMessagesTest : public ::testing::Test {
  protected:
    ViewBench bench;
    StateLine line{bench.binder, bench.theme, nullptr};

    RecordingMessagesTest() {
        line.resize(900, line.height());
        line.show();
        line.AddSource(StateLine::Rank::Replay, [this] { return ReplayMessage(bench.binder); });
        line.AddSource(StateLine::Rank::Operation, [] { return StateMessage{.text = "操作 甲"}; });
        line.ShowCounts([this] { return CaptureCounts(Form()); });
    }

    MainForm& Form() { return bench.Form(); }
    void RunUntil(std::int64_t time) {
        bench.session.line.RunUntil(time);
        bench.binder.Look();
    }
    void TickReplay() {
        bench.binder.Event([this] { Form().ConMyCommDriver.Set(true); });
    }
    void ChooseTheRecording() {
        bench.binder.Event([this] {
            Form().SSTab2.Choose(3);
            Form().MSHFlexGrid1[2].Select(1, 1);
            MSHFlexGrid1_Click(Form(), 2);
        });
    }
    void RecordTwo() {
        AddRecorded(bench.session, u"PLANT", frames::kReadDynamic, frames::kDynamicReply);
        AddRecorded(bench.session, u"PLANT", frames::kReadStatic, frames::kStaticReply);
    }
    std::string Head() const { return line.Shown().head.toStdString(); }
    std::string Text() const { return line.Shown().text.toStdString(); }
    std::string Count() const { return line.Shown().count.toStdString(); }
    QLabel& Counts() { return *FindNamed<QLabel>(line, "采集计数"); }
};

TEST_F(RecordingMessagesTest, ReplayWithoutARecordingLeadsToThem) {
    TickReplay();
    EXPECT_EQ(Head(), "数据演示：尚未选定录制");
    EXPECT_EQ(line.Shown().look, StateMessage::Look::Tinted);
    EXPECT_EQ(line.Shown().action.toStdString(), "去选定");
    Form().SSTab2.Choose(0);
    line.Shown().act();
    EXPECT_EQ(Form().SSTab2.Chosen(), 3);
}

TEST_F(RecordingMessagesTest, ReplaySaysThatNoInstrumentIsAttachedAndHowFarItIs) {
    RecordTwo();
    TickReplay();
    ChooseTheRecording();
    EXPECT_EQ(Head(), "数据演示，未接仪表");
    EXPECT_EQ(Text(), "仪表甲，PLANT");
    EXPECT_EQ(Count(), "第 1 / 2 条");
    bench.session.Start();
    RunUntil(400);
    EXPECT_EQ(Count(), "第 2 / 2 条");
    RunUntil(1500);
    EXPECT_EQ(Count(), "第 1 / 2 条");
    EXPECT_EQ(line.accessibleDescription().toStdString(), "数据演示，未接仪表 仪表甲，PLANT");
}

TEST_F(RecordingMessagesTest, TickWithoutEffectIsNoReplay) {
    TickReplay();
    Form().CommandCode = 10;
    bench.binder.Look();
    EXPECT_EQ(Head(), "");
    EXPECT_EQ(Text(), "操作 甲");
}

TEST_F(RecordingMessagesTest, CaptureCountsNewAndKnownPairs) {
    Form().CommandCode = 10;
    bench.session.dialogs.Answers = {u"plant"};
    bench.session.AnswersEachFrame(frames::kDynamicReply);
    EXPECT_FALSE(Counts().isVisible());
    bench.binder.Event([this] { Form().ConSaveData.Set(true); });
    EXPECT_EQ(Counts().text().toStdString(), "采集 新 0 已有 0");
    bench.session.Start();
    RunUntil(700);
    EXPECT_EQ(Counts().text().toStdString(), "采集 PLANT 新 1 已有 3");
    EXPECT_TRUE(Counts().isVisible());
    EXPECT_TRUE(line.SaysMoreThanTheOperation());
    bench.binder.Event([this] { Form().ConSaveData.Set(false); });
    EXPECT_FALSE(Counts().isVisible());
    EXPECT_FALSE(line.SaysMoreThanTheOperation());
    bench.binder.Event([this] { Form().ConSaveData.Set(true); });
    EXPECT_EQ(Counts().text().toStdString(), "采集 PLANT 新 0 已有 0");
}

TEST_F(RecordingMessagesTest, LargeCountsAreGrouped) {
    Form().ConSaveData.Set(true);
    Form().KnownPairCount = 1902;
    bench.binder.Look();
    EXPECT_EQ(Counts().text().toStdString(), "采集 新 0 已有 1,902");
}

TEST_F(RecordingMessagesTest, MissedPairsAreCounted) {
    Form().ConSaveData.Set(true);
    Form().MissedPairCount = 3;
    bench.binder.Look();
    EXPECT_EQ(Counts().text().toStdString(), "采集 新 0 已有 0 未存 3");
}

TEST_F(RecordingMessagesTest, CountsGiveWayToAnAction) {
    bench.binder.Event([this] { Form().ConSaveData.Set(true); });
    TickReplay();
    EXPECT_FALSE(Counts().isVisible());
}

}  // namespace
}  // namespace commtest::testing
