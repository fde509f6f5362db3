#include "session/multi_instrument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/polling_cycle.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::Happen;
using ::testing::IsEmpty;
using testing::NativeBench;
using testing::ShownBox;
using ::testing::SizeIs;
namespace frames = testing::frames;

class MultiInstrument : public ::testing::Test {
  protected:
    // The user ticks the box and answers the questions in turn.
    void Tick(const std::vector<Text>& answers) {
        bench.dialogs.Answers = answers;
        Happen(bench, [](MainForm& f) { f.Check1.Set(true); });
    }

    NativeBench bench;
    MainForm& form = bench.Form();
};

TEST_F(MultiInstrument, AsksForTheNumberAndThenForEachAddress) {
    Tick({u"2", u"17", u"3"});
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(3));
    const std::vector<ShownBox>& boxes = bench.dialogs.Shown;
    EXPECT_EQ(ToUtf8(boxes[0].title), "仪表数量");
    EXPECT_EQ(ToUtf8(boxes[0].text), "请输入仪表的总台数");
    EXPECT_EQ(ToUtf8(boxes[0].proposal), "0");
    EXPECT_EQ(ToUtf8(boxes[1].title), "第 1 台仪表地址");
    EXPECT_EQ(ToUtf8(boxes[1].text), "请输入仪表的地址");
    EXPECT_EQ(ToUtf8(boxes[2].title), "第 2 台仪表地址");
    EXPECT_EQ(form.MultiAddressCount, 2);
    EXPECT_THAT(form.MultiAddressList, ElementsAre(17, 3));
}

TEST_F(MultiInstrument, ProposedAddressesCountFromOneWhateverIsAnswered) {
    Tick({u"3", u"40", u"50", u"60"});
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown.at(1).proposal), "1");
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown.at(2).proposal), "2");
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown.at(3).proposal), "3");
}

TEST_F(MultiInstrument, NumberOfTheLastTimeIsProposedAgainAndTheAddressesAreNot) {
    Tick({u"2", u"17", u"3"});
    form.Check1.Set(false);
    bench.dialogs.Shown.clear();
    form.Check1.Set(true);  // every question answered as proposed
    EXPECT_EQ(ToUtf8(bench.dialogs.Shown.at(0).proposal), "2");
    EXPECT_THAT(form.MultiAddressList, ElementsAre(1, 2));
}

TEST_F(MultiInstrument, ClearingTheBoxAsksNothingAndKeepsTheList) {
    Tick({u"1", u"17"});
    bench.dialogs.Shown.clear();
    form.Check1.Set(false);
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_THAT(form.MultiAddressList, ElementsAre(17));
}

TEST_F(MultiInstrument, RunningSessionStopsForTheQuestionsAndStartsAgain) {
    bench.Start();
    bench.line.RunUntil(300);
    form.StaticSample = u" 40";
    Tick({u"1", u"2"});
    EXPECT_TRUE(form.IsRunning());
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_EQ(ToUtf8(form.StaticSample), "");  // as button 4 starts
}

TEST_F(MultiInstrument, StoppedSessionStaysStopped) {
    Tick({u"1", u"2"});
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(MultiInstrument, AnswerThatIsNoNumberEndsTheHandlerWithTheSessionStopped) {
    for (const std::vector<Text>& answers : {std::vector<Text>{u"两台"}, {u""}, {u"2", u"1", u""}}) {
        NativeBench each;
        each.Start();
        each.dialogs.Answers = answers;
        Happen(each, [](MainForm& f) { f.Check1.Set(true); });
        EXPECT_EQ(each.dialogs.Shown.back().kind, ShownBox::Kind::Error);
        EXPECT_EQ(each.dialogs.Shown.back().number, 13);
        EXPECT_FALSE(each.Form().IsRunning());
    }
}

TEST_F(MultiInstrument, PollingTakesTheAddressesInTurn) {
    Tick({u"3", u"1", u"10", u"255"});
    form.CommandCode = 10;
    bench.AnswersEachFrame(frames::kTaken);
    bench.Start();
    bench.line.RunUntil(603);
    // check words: 30^31, 30^41 and 46^46, each with 52^44
    EXPECT_THAT(bench.SentFrames(), ElementsAre("40 30 31 52 44 31 37 0D", "40 30 41 52 44 36 37 0D",
                                                "40 46 46 52 44 31 36 0D", "40 30 31 52 44 31 37 0D"));
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "1");
    EXPECT_EQ(form.MultiAddressIndex, 1);
}

TEST_F(MultiInstrument, WrittenFrameKeepsItsAddressWhileTheTurnGoesOn) {
    form.ParameterGrid().Select(1, 10);
    Tick({u"2", u"1", u"10"});
    bench.AnswersEachFrame(frames::kTaken);
    bench.TypeAndEnter(u"200");
    bench.line.RunUntil(401);
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frames::kWriteFirstRow, "40 30 41 52 44 36 37 0D"));
}

TEST_F(MultiInstrument, EmptyListFailsOnItsIndexAtTheNextFrame) {
    Tick({u"0"});
    EXPECT_EQ(form.MultiAddressCount, 0);
    bench.Start();
    bench.line.RunUntil(300);
    EXPECT_EQ(bench.dialogs.Shown.back().kind, ShownBox::Kind::Error);
    EXPECT_EQ(bench.dialogs.Shown.back().number, 9);
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_THAT(bench.SentFrames(), IsEmpty());
}

TEST_F(MultiInstrument, ShorterListBeginsAnewBehindAnIndexBeyondIt) {
    Tick({u"2", u"5", u"6"});
    form.MultiAddressIndex = 9;
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "5");
}

TEST_F(MultiInstrument, WithoutItsTickTheAddressStays) {
    Tick({u"2", u"5", u"6"});
    form.Check1.Set(false);
    BuildReadRequest(form);
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "1");
}

TEST_F(MultiInstrument, ChoiceOfTheWriteTypeBringsTheGridIntoView) {
    form.SSTab2.Choose(4);
    form.WriteType.Choose(2);
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    EXPECT_EQ(form.WriteType.Chosen(), 2);
}

}  // namespace
}  // namespace commtest
