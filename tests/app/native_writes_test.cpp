#include <gtest/gtest.h>

#include "app/instrument_bench.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using testing::InstrumentBench;

const std::vector<testing::TestParameter> kParameters = {{u"上限", u"0123", u"2", u"RW", u"0"}};
constexpr int kTwoBytes = 6;

TEST(NativeWriteOnTheLine, FrameGoesOutAtTheNextPollInPlaceOfARead) {
    InstrumentBench bench(11, kParameters);
    bench.Click(kTwoBytes, column::kNewValue);
    bench.TypeAndEnter(u"1234");
    bench.WillReply({"@01##01\r", "@01RD17\r"});
    bench.line.RunUntil(600);
    EXPECT_EQ(bench.SentCharacters(),
              (std::vector<std::string>{"@01W20123D20416\r", "@01RD17\r", "@01RR01\r"}));
}

TEST(NativeWriteOnTheLine, Code12SendsItsOwnForm) {
    InstrumentBench bench(12, kParameters);
    bench.SetCell(kTwoBytes, column::kAddress, u"2123");
    bench.Click(kTwoBytes, column::kNewValue);
    bench.TypeAndEnter(u"1234");
    bench.line.RunUntil(300);
    EXPECT_EQ(bench.SentCharacters(), std::vector<std::string>{"@01W212302D204BC\r"});
}

TEST(NativeWriteOnTheLine, TwoEntriesBeforeThePollSendTheFrameTwice) {
    InstrumentBench bench(11, kParameters);
    bench.Click(kTwoBytes, column::kNewValue);
    bench.TypeAndEnter(u"1234");
    bench.TypeAndEnter(u"1235");
    EXPECT_EQ(bench.Form().CommandCode, 231);
    bench.WillReply({"@01##01\r", "@01##01\r"});
    bench.line.RunUntil(600);
    EXPECT_EQ(bench.SentCharacters(),
              (std::vector<std::string>{"@01W20123D30417\r", "@01W20123D30417\r", "@01RD17\r"}));
}

TEST(NativeWriteOnTheLine, EntryThatIsNoNumberSendsAndStartsNothing) {
    InstrumentBench bench(11, kParameters);
    bench.Click(kTwoBytes, column::kNewValue);
    bench.TypeAndEnter(u"12a");
    EXPECT_EQ(bench.dialogs.Texts(), std::vector<std::string>{"实时错误 '13':\r\n\r\n类型不匹配"});
    EXPECT_EQ(bench.Form().CommandCode, 31);
    EXPECT_FALSE(bench.Form().IsRunning());
    bench.line.RunUntil(1000);
    EXPECT_EQ(bench.line.FrameCount(), 0u);
}

TEST(NativeWriteOnTheLine, Code13SendsWhateverFrameStands) {
    InstrumentBench bench(13, kParameters);
    bench.Form().SendText = testing::FrameOf("@01RD17\r");
    bench.Click(kTwoBytes, column::kNewValue);
    bench.TypeAndEnter(u"1234");
    EXPECT_EQ(bench.Form().CommandCode, 131);
    EXPECT_EQ(bench.Cell(kTwoBytes, column::kNewValue), "");
    bench.line.RunUntil(300);
    EXPECT_EQ(bench.SentCharacters(), std::vector<std::string>{"@01RD1700\r"});
}

}  // namespace
}  // namespace commtest
