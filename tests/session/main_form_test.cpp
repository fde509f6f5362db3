#include "session/main_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FormBench;
using ::testing::IsEmpty;

class NewForm : public ::testing::Test {
  protected:
    FormBench bench;
    const MainForm& form = bench.form;
};

TEST_F(NewForm, SearchesTheFirstTenAddressesAtNoBaudRateYet) {
    EXPECT_EQ(ToUtf8(form.ConSettingDE[0].Value()), "1");
    EXPECT_EQ(ToUtf8(form.ConSettingDE[1].Value()), "10");
    for (const TickControl& tick : form.ConSettingBT) EXPECT_FALSE(tick.Value());
    EXPECT_FALSE(form.FindFrame.Visible());
}

TEST_F(NewForm, HasATickForEachBaudRateOfTheSearch) {
    EXPECT_THAT(kSearchBaudRates, ElementsAre(u" 1200", u" 2400", u" 4800", u" 9600", u" 19200", u" 28800",
                                              u" 38400", u" 57600"));
    EXPECT_EQ(form.ConSettingBT.size(), 8U);
}

TEST_F(NewForm, OffersTheFirstFourPortsInBothLists) {
    EXPECT_THAT(form.ConCommSetting[0].Items(), ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4"));
    EXPECT_THAT(form.ConSettingComm.Items(), ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4"));
    EXPECT_EQ(ToUtf8(form.ConCommSetting[0].Value()), "COM1");
}

TEST_F(NewForm, WritesFourBytesAndStepsTheIntervalByOne) {
    EXPECT_TRUE(form.WriteType.IsChosen(1));
    EXPECT_EQ(form.DelayStep, 1);
    EXPECT_EQ(ToUtf8(form.ConDelayTime.Value()), "100");
    EXPECT_EQ(ToUtf8(form.ConDataNub.Value()), "16");
}

TEST_F(NewForm, ShowsTheRecordAlone) {
    EXPECT_EQ(form.ShowTypeStep, 0);
    EXPECT_FALSE(form.ConCommString[0].Visible());
    EXPECT_TRUE(form.ConCommString[1].Visible());
}

TEST_F(NewForm, HasItsStartStillBeforeIt) {
    EXPECT_FALSE(form.Activated);
    EXPECT_EQ(ToUtf8(form.Caption.Value()), "");
    EXPECT_EQ(ToUtf8(form.RichTextBox1.WholeText()), "");
    EXPECT_THAT(bench.settings.Values, IsEmpty());
}

}  // namespace
}  // namespace commtest
