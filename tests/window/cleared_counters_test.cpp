#include "window/cleared_counters.h"

#include <gtest/gtest.h>

#include <QTest>

#include "session/reply_routing.h"
#include "window/note_bar.h"
#include "window/statistics_label.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class ClearedCountersTest : public ::testing::Test {
  protected:
    ViewBench bench;
    MainForm& form = bench.Form();
    NoteBar notes{bench.theme};
    StatisticsLabel label{bench.binder, bench.theme, 2, nullptr};
    ClearedCounters cleared{bench.binder, notes, nullptr};

    ClearedCountersTest() {
        cleared.Serve(label);
        label.resize(500, 24);
    }

    void Count(std::int32_t sent, std::int32_t incomplete, std::int32_t checkErrors, std::int32_t missing) {
        form.SendCount = sent;
        form.IncompleteCount = incomplete;
        form.CheckErrorCount = checkErrors;
        form.NoReplyCount = missing;
        ShowStatistics(form);
        bench.binder.Look();
    }
    void Clear() { QTest::keyClick(&label, Qt::Key_Return); }
    std::vector<std::int32_t> Counters() const {
        return {form.SendCount, form.IncompleteCount, form.CheckErrorCount, form.NoReplyCount};
    }
};

TEST_F(ClearedCountersTest, StartAnewWithTheOfferOfAWayBack) {
    Count(12, 1, 2, 3);
    Clear();
    EXPECT_EQ(Counters(), (std::vector<std::int32_t>{0, 0, 0, 0}));
    EXPECT_EQ(notes.Text().toStdString(), "计数已清零");
    EXPECT_TRUE(notes.HasOffer());
}

TEST_F(ClearedCountersTest, AreShownAtOnce) {
    Count(12, 1, 2, 3);
    Clear();
    EXPECT_EQ(label.accessibleName().toStdString(),
              "总计通讯: 0 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 ");
}

TEST_F(ClearedCountersTest, ComeBackOnTopOfTheNewerOnesAndAreShown) {
    Count(12, 1, 2, 3);
    Clear();
    Count(8, 0, 1, 0);
    notes.TakeOffer();
    EXPECT_EQ(Counters(), (std::vector<std::int32_t>{20, 1, 3, 3}));
    EXPECT_EQ(label.accessibleName().toStdString(),
              "总计通讯: 20 次         数据不完整 1 次;校验出错 3 次;无应答 3 次; 错误率 35.00 %");
}

TEST_F(ClearedCountersTest, ClearedTwiceBothCountsComeBack) {
    Count(12, 0, 0, 0);
    Clear();
    Clear();
    Count(8, 0, 0, 1);
    Clear();
    Count(1, 0, 0, 0);
    notes.TakeOffer();
    EXPECT_EQ(Counters(), (std::vector<std::int32_t>{21, 0, 0, 1}));
}

TEST_F(ClearedCountersTest, CountsOfAnOfferThatIsGoneDoNotComeBack) {
    Count(12, 0, 0, 0);
    Clear();
    notes.Say("已存");
    Count(8, 0, 0, 0);
    Clear();
    notes.TakeOffer();
    EXPECT_EQ(form.SendCount, 8);
}

TEST_F(ClearedCountersTest, NothingIsOfferedWhereNothingIsCounted) {
    Clear();
    EXPECT_EQ(notes.Text().toStdString(), "");
}

}  // namespace
}  // namespace commtest::testing
