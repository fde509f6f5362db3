#include "commands/search_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/toolbar_commands.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;

class SearchPanel : public ::testing::Test {
  protected:
    SearchPanel() {
        form.FindFrame.SetVisible(true);
        form.ConSettingComm.Set(u"COM1");
    }

    void Start() { RunToolbarCommand(form, toolbar::kStartStop); }

    FormBench bench;
    MainForm& form = bench.form;
};

TEST_F(SearchPanel, GivingUpHidesItAndARunningSearchGoesOn) {
    form.CommandCode = 1031;
    Start();
    FindMeter_Click(form, 0);
    EXPECT_FALSE(form.FindFrame.Visible());
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_EQ(form.CommandCode, 1031);
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None);
}

TEST_F(SearchPanel, SearchBeginsAndThePanelStays) {
    FindMeter_Click(form, 1);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("搜索可能将持续数分钟之久,请耐心等待！"));
    EXPECT_EQ(form.CommandCode % 10000 / 1000, 1);
    EXPECT_TRUE(form.FindFrame.Visible());
}

TEST_F(SearchPanel, SearchBeginsInAStoppedSessionWhoseErrorFileStaysOpen) {
    Start();
    bool wasRunning = true;
    std::int16_t step = 1;
    bench.dialogs.Time = [&] {
        wasRunning = form.IsRunning();
        step = form.CycleStep;
        return std::int64_t{0};
    };
    FindMeter_Click(form, 1);
    EXPECT_FALSE(wasRunning);
    EXPECT_EQ(step, 0);
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_FALSE(form.ClearFileCommand[0].Enabled());
    EXPECT_FALSE(form.ClearFileCommand[1].Enabled());
}

TEST_F(SearchPanel, SearchWhileStoppedLeavesTheStepOfTheCycle) {
    form.CycleStep = 3;
    FindMeter_Click(form, 1);
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(SearchPanel, HasTwoButtons) {
    for (const int button : {-1, 2}) {
        FindMeter_Click(form, button);
        EXPECT_TRUE(form.FindFrame.Visible()) << button;
        EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::None) << button;
    }
}

}  // namespace
}  // namespace commtest
