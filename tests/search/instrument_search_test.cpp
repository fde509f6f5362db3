#include "search/instrument_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/search_panel.h"
#include "support/error_of.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::Happen;
using ::testing::HasSubstr;
using testing::NativeBench;
using testing::SentFrame;
using ::testing::SizeIs;

constexpr int k1200 = 0;
constexpr int k9600 = 3;
constexpr int k19200 = 4;

// Requests and a reply of a native search, their check words worked by hand.
const std::string kRequestOf4 = "@04RD12\r";
const std::string kRequestOf5 = "@05RD13\r";
const std::string kReplyOf5 = "@05RDC80064006A\r";

class InstrumentSearch : public ::testing::Test, public NativeBench {
  protected:
    InstrumentSearch() {
        Form().ConSettingComm.Set(u"COM1");
        Form().CommandCode = 31;
        Form().ConDelayTime.Set(u"97");
    }

    void Tick(int rate) { Form().ConSettingBT.at(static_cast<std::size_t>(rate)).Set(true); }
    void Range(const Text& first, const Text& last) {
        Form().ConSettingDE[0].Set(first);
        Form().ConSettingDE[1].Set(last);
    }
    void Search() {
        Happen(*this, [](MainForm& form) { FindMeter_Click(form, 1); });
    }
    // Answers the one request, at the rate only if one is given.
    void Answers(const std::string& request, const std::string& reply, const Text& rate = {}) {
        line.Answer = [this, request, reply, rate](const std::string& frame) {
            const bool hears = frame == request && (rate.empty() || line.Settings().starts_with(rate));
            return hears ? std::vector<testing::Arrival>{{20, reply}} : std::vector<testing::Arrival>{};
        };
    }
    // Rate and frame of each request.
    std::vector<std::string> Tried() const {
        std::vector<std::string> tried;
        for (const SentFrame& frame : line.Frames()) {
            tried.push_back(ToUtf8(Before(frame.settings, u',')) + " " + frame.bytes.substr(1, 2));
        }
        return tried;
    }
};

TEST_F(InstrumentSearch, OneAddressAtOneRateIsOneFrameAndTheEndMessage) {
    Tick(k9600);
    Range(u"1", u"1");
    Search();
    line.RunUntil(10000);
    EXPECT_THAT(Tried(), ElementsAre("9600 01"));
    EXPECT_THAT(dialogs.Texts(), ElementsAre("搜索可能将持续数分钟之久,请耐心等待！",
                                             "搜索结束！总计搜索到 0 台仪表！耗时 1 秒"));
    EXPECT_FALSE(Form().IsRunning());
}

TEST_F(InstrumentSearch, ReplyIsCountedAndItsBlockNamesTheAddress) {
    Tick(k9600);
    Range(u"1", u"10");
    Answers(kRequestOf5, kReplyOf5);
    Search();
    line.RunUntil(60000);
    EXPECT_EQ(Form().SearchFoundCount, 1);
    EXPECT_THAT(Record(), HasSubstr("5# 仪表"));
    EXPECT_THAT(line.Frames(), SizeIs(10));
}

TEST_F(InstrumentSearch, TwoAnswersOfOneAddressCountTwo) {
    Tick(k9600);
    Range(u"5", u"5");
    line.Answer = [](const std::string&) {
        return std::vector<testing::Arrival>{{20, kReplyOf5}, {20, kReplyOf5}};
    };
    Search();
    line.RunUntil(20000);
    EXPECT_EQ(Form().SearchFoundCount, 2);
}

TEST_F(InstrumentSearch, RatesBetweenTickedOnesAreSearchedToo) {
    Tick(k1200);
    Tick(k9600);
    Range(u"1", u"1");
    Search();
    line.RunUntil(60000);
    EXPECT_THAT(Tried(), ElementsAre("1200 01", "2400 01", "4800 01", "9600 01"));
}

TEST_F(InstrumentSearch, RateChangesBehindThreeHundredMilliseconds) {
    Tick(k9600);
    Tick(k19200);
    Range(u"1", u"1");
    Search();
    line.RunUntil(60000);
    ASSERT_THAT(line.Frames(), SizeIs(2));
    // Five ticks of 300 ms of silence, one of 1 ms, then the pause.
    EXPECT_EQ(line.Frames()[1].time - line.Frames()[0].time, 1200 + 300 + 300);
    EXPECT_EQ(ToUtf8(line.Frames()[1].settings), "19200,N,8,1");
}

TEST_F(InstrumentSearch, EndPutsBackWhatWasBeforeAndLeavesThePortOpen) {
    Form().ConMeterAddr.Set(u"7");
    Form().FindFrame.SetVisible(true);
    Tick(k19200);
    Range(u"1", u"2");
    Search();
    EXPECT_EQ(Form().CommandCode, 1031);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1");
    line.RunWhile([this] { return Form().IsRunning(); }, 60000);
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "7");
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "97");
    EXPECT_EQ(Form().CommandCode, 31);
    EXPECT_FALSE(Form().FindFrame.Visible());
    EXPECT_EQ(ToUtf8(Form().MSComm1.Settings()), "9600,N,8,1");
    EXPECT_TRUE(Form().MSComm1.PortOpen());
}

TEST_F(InstrumentSearch, WithoutARateTheStateReachedSoFarStays) {
    Range(u"3", u"9");
    Search();
    line.RunUntil(20000);
    EXPECT_THAT(line.Frames(), SizeIs(0));
    EXPECT_EQ(Form().CommandCode, 1031);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1");
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "3");
    EXPECT_FALSE(Form().IsRunning());
}

TEST_F(InstrumentSearch, ButtonStopsItAndLeavesItsState) {
    Tick(k9600);
    Range(u"1", u"9");
    Search();
    line.RunUntil(2000);
    Press(4);
    line.RunUntil(20000);
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_EQ(Form().CommandCode, 1031);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1");
    EXPECT_THAT(dialogs.Texts(), SizeIs(1));
}

TEST_F(InstrumentSearch, RunningSessionIsStoppedForIt) {
    Tick(k9600);
    Range(u"4", u"4");
    Press(4);
    line.RunUntil(1000);
    const std::size_t before = line.Frames().size();
    Search();
    EXPECT_EQ(Form().LastStop().cause, StopCause::Search);
    line.RunUntil(20000);
    ASSERT_GT(line.Frames().size(), before);
    EXPECT_EQ(line.Frames()[before].bytes, kRequestOf4);
    EXPECT_EQ(ToUtf8(dialogs.Shown.back().text).find("搜索结束！"), 0U);
}

TEST_F(InstrumentSearch, HiddenPanelLetsItGoOn) {
    Form().FindFrame.SetVisible(true);
    Tick(k9600);
    Range(u"1", u"2");
    Search();
    Happen(*this, [](MainForm& form) { FindMeter_Click(form, 0); });
    EXPECT_FALSE(Form().FindFrame.Visible());
    line.RunUntil(60000);
    EXPECT_THAT(line.Frames(), SizeIs(2));
}

TEST_F(InstrumentSearch, BeginsWithCountersAndRecordAnew) {
    Form().SendCount = 12;
    Form().NoReplyCount = 3;
    Form().SearchFoundCount = 4;
    Tick(k9600);
    Search();
    EXPECT_EQ(Form().SendCount + Form().NoReplyCount + Form().SearchFoundCount, 0);
}

TEST_F(InstrumentSearch, PortOfThePanelIsSearched) {
    Form().ConSettingComm.Set(u"COM 3");
    Tick(k9600);
    Range(u"1", u"1");
    Search();
    line.RunUntil(1000);
    ASSERT_THAT(line.Frames(), SizeIs(1));
    EXPECT_EQ(line.Frames()[0].port, 3);
}

TEST_F(InstrumentSearch, PortOrAddressThatIsNoNumberIsError13) {
    Form().ConSettingComm.Set(u"COMx");
    EXPECT_EQ(ErrorOf([&] { FindCommMeter(Form()); }), 13);
    Form().ConSettingComm.Set(u"COM1");
    Range(u"x", u"2");
    EXPECT_EQ(ErrorOf([&] { FindCommMeter(Form()); }), 13);
}

TEST_F(InstrumentSearch, PortThatCannotBeHadIsToldAndStopsIt) {
    line.Occupied = true;
    Tick(k9600);
    Range(u"1", u"9");
    Search();
    line.RunUntil(5000);
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_EQ(ToUtf8(dialogs.Shown.at(1).text), "系统串口被占用,无法打开！");
}

TEST_F(InstrumentSearch, TimeIsCountedOverMidnight) {
    line.SetWallClock({2024, 5, 6, 23, 59, 59});
    Tick(k9600);
    Range(u"1", u"2");
    Search();
    line.RunUntil(60000);
    EXPECT_EQ(ToUtf8(dialogs.Shown.back().text), "搜索结束！总计搜索到 0 台仪表！耗时 3 秒");
}

TEST_F(InstrumentSearch, AnswersOnlyAtItsRate) {
    Tick(k9600);
    Tick(k19200);
    Range(u"4", u"6");
    Answers(kRequestOf5, kReplyOf5, u"19200");
    Search();
    line.RunUntil(60000);
    EXPECT_EQ(Form().SearchFoundCount, 1);
    EXPECT_THAT(Record(), HasSubstr("19200"));
}

// --- What was heard ---

TEST_F(InstrumentSearch, HitHasAddressRateTimeReplyAndCheckWord) {
    Tick(k9600);
    Range(u"1", u"9");
    Answers(kRequestOf5, kReplyOf5);
    Search();
    line.RunUntil(60000);
    ASSERT_THAT(Form().SearchHits, SizeIs(1));
    const SearchHit& hit = Form().SearchHits[0];
    EXPECT_EQ(hit.address, 5);
    EXPECT_EQ(ToUtf8(hit.rate), "9600");
    EXPECT_EQ(hit.replyTime, 20000);
    EXPECT_EQ(ToUtf8(hit.reply), " 40 30 35 52 44 43 38 30 30 36 34 30 30 36 41 0D");
    EXPECT_EQ(hit.check, CheckWord::Right);
    Search();
    EXPECT_THAT(Form().SearchHits, SizeIs(0)) << "a new search begins anew";
}

TEST_F(InstrumentSearch, LateAnswerHasTheAddressThatStandsInIt) {
    Tick(k9600);
    Range(u"5", u"7");
    line.Answer = [](const std::string& frame) {
        // Behind the wait for address 5, while 6 is asked.
        return frame == kRequestOf5 ? std::vector<testing::Arrival>{{1600, kReplyOf5}}
                                    : std::vector<testing::Arrival>{};
    };
    Search();
    line.RunUntil(60000);
    ASSERT_THAT(Form().SearchHits, SizeIs(1));
    EXPECT_EQ(Form().SearchHits[0].address, 5);
    EXPECT_THAT(Record(), HasSubstr("此时仪表地址: 6"));
}

TEST_F(InstrumentSearch, WrongCheckWordIsToldAndItsAddressIsTheOneAsked) {
    Tick(k9600);
    Range(u"4", u"4");
    Answers(kRequestOf4, "@09RDC80064006B\r");
    Search();
    line.RunUntil(60000);
    ASSERT_THAT(Form().SearchHits, SizeIs(1));
    EXPECT_EQ(Form().SearchHits[0].check, CheckWord::Wrong);
    EXPECT_EQ(Form().SearchHits[0].address, 4);
}

TEST_F(InstrumentSearch, BytesWithoutAnEndAreNoHit) {
    Tick(k9600);
    Range(u"4", u"5");
    Answers(kRequestOf4, "@04RDC8");
    Search();
    line.RunUntil(60000);
    EXPECT_THAT(Form().SearchHits, SizeIs(0));
}

// --- How far it is ---

TEST_F(InstrumentSearch, TellsHowFarItIs) {
    Tick(k1200);
    Tick(k9600);
    Range(u"3", u"12");
    Search();
    SearchProgress progress = ProgressOf(Form());
    EXPECT_EQ(progress.address, 3);
    EXPECT_EQ(ToUtf8(progress.rate), "1200");
    EXPECT_EQ(progress.rateNumber, 1);
    EXPECT_EQ(progress.rates, 4);
    EXPECT_TRUE(progress.isTicked);
    EXPECT_EQ(progress.done, 0);
    EXPECT_EQ(progress.all, 40);
    EXPECT_EQ(progress.millisecondsLeft, 40 * 1500 + 3 * 300);
    line.RunWhile([this] { return Form().SearchBaudIndex == 0; }, 60000);
    line.RunWhile([this] { return Form().ConMeterAddr.Value() != u"5"; }, 60000);
    progress = ProgressOf(Form());
    EXPECT_EQ(ToUtf8(progress.rate), "2400");
    EXPECT_FALSE(progress.isTicked);
    EXPECT_EQ(progress.rateNumber, 2);
    EXPECT_EQ(progress.done, 12);
    EXPECT_EQ(progress.millisecondsLeft, 28 * 1500 + 2 * 300);
}

}  // namespace
}  // namespace commtest
