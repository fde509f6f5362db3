#include "window/replay_hint.h"

#include <gtest/gtest.h>

#include <QDialog>

#include "commands/list_clicks.h"
#include "window/recordings_bench.h"

namespace commtest::testing {
namespace {

const std::string kHint = "数据演示：请双击选定录制，再按 F5";

class ReplayHintTest : public ::testing::Test, protected RecordingsBench {
  protected:
    ReplayHint hint{bench.binder, notes, &window};

    void Event(const std::function<void()>& event) { bench.binder.Event(event); }
    void TickReplay() {
        Event([this] { Form().ConMyCommDriver.Set(true); });
    }
};

TEST_F(ReplayHintTest, ReplayThatHasNoRecordingYetIsToldWhatToDoOnce) {
    EXPECT_EQ(Note(), "");
    TickReplay();
    EXPECT_EQ(Note(), kHint);
    notes.Say("别的");
    bench.binder.Look();
    EXPECT_EQ(Note(), "别的");
}

TEST_F(ReplayHintTest, ItIsSaidAgainWhereThePageIsChosenAgain) {
    TickReplay();
    notes.Say("别的");
    Event([this] { Form().SSTab2.Choose(0); });
    EXPECT_EQ(Note(), "别的");
    Event([this] { Form().SSTab2.Choose(3); });
    EXPECT_EQ(Note(), kHint);
}

TEST_F(ReplayHintTest, ChosenRecordingNeedsNoHint) {
    TickReplay();
    Event([this] {
        Form().MSHFlexGrid1[2].Select(1, 1);
        MSHFlexGrid1_Click(Form(), 2);
    });
    notes.Say("别的");
    Event([this] { Form().SSTab2.Choose(3); });
    EXPECT_EQ(Note(), "别的");
}

TEST_F(ReplayHintTest, HintWaitsForTheBoxThatStands) {
    QDialog box(&window);
    box.setModal(true);
    box.show();
    TickReplay();
    EXPECT_EQ(Note(), "");
    box.hide();
    bench.binder.Look();
    EXPECT_EQ(Note(), kHint);
}

}  // namespace
}  // namespace commtest::testing
