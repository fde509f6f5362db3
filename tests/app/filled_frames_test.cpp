// Code 13 in a whole session: its frames carry a fill, and an address that another protocol has left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/instrument_bench.h"
#include "commands/toolbar_commands.h"
#include "protocol_native/read_requests.h"
#include "session/grid_rows.h"
#include "support/error_of.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::Happen;
using ::testing::HasSubstr;
using testing::InstrumentBench;
using testing::NativeBench;

const Text kFilledProtocol = u"TQ仪表协议-定制异或和";

// --- A frame that does not stand ---

constexpr int kParameter = 6;

// A session in which no frame has been built yet, with an entry for its parameter.
struct FirstEntry : InstrumentBench {
    FirstEntry() : InstrumentBench(13, {{u"上限", u"0123", u"2", u"RW", u"0"}}) {
        Click(kParameter, column::kNewValue);
        TypeAndEnter(u"1234");
    }
};

TEST(FilledFrameThatDoesNotStand, IsError5AndNothingGoesOut) {
    FirstEntry bench;
    EXPECT_EQ(bench.Form().CommandCode, 131);
    bench.line.RunUntil(5000);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("实时错误 '5':\r\n\r\n无效的过程调用或参数"));
    EXPECT_EQ(bench.dialogs.Shown.at(0).number, 5);
    EXPECT_EQ(bench.dialogs.Shown.at(0).time, 300);
    EXPECT_EQ(bench.line.FrameCount(), 0U);
    EXPECT_EQ(bench.Form().SendCount, 0);
    EXPECT_EQ(ToUtf8(bench.Form().SendText), "");
    EXPECT_FALSE(bench.line.PortOpen());
}

TEST(FilledFrameThatDoesNotStand, EndsTheTickAndTheNextStartReads) {
    FirstEntry bench;
    bench.line.RunUntil(300);
    EXPECT_FALSE(bench.Form().Timer1[1].Enabled());
    EXPECT_TRUE(bench.Form().IsRunning());
    EXPECT_EQ(bench.Form().CommandCode, 31);
    bench.Press(toolbar::kStartStop);
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(600);
    EXPECT_THAT(bench.SentCharacters(), ElementsAre("@01RD1700\r"));
}

TEST(FillFrameEnd, TakesOneByteAtLeast) {
    struct Row {
        HexText frame;
        int error;
        std::string filled;
    };
    for (const Row& row : {Row{u"", 5, ""}, Row{u"\n", 5, "\n"}, Row{u" 0D", 0, " 30 30 0d"},
                           Row{u" 41 0D", 0, " 41 30 30 0d"}}) {
        InstrumentBench bench(13, {});
        bench.Form().SendText = row.frame;
        EXPECT_EQ(ErrorOf([&] { FillFrameEnd(bench.Form()); }), row.error);
        EXPECT_EQ(ToUtf8(bench.Form().SendText), row.filled);
    }
}

// --- Several instruments ---

// Address 5, left by the plain protocol; then addresses 1 and 10 in turn.
class WalkOfAddressesUnderCode13 : public ::testing::Test {
  protected:
    WalkOfAddressesUnderCode13() {
        bench.Add(u"仪表乙", kFilledProtocol, u"1301", {{u"测量值", u"0200", u"2", u"D", u"0"}});
        form.ConMeterAddr.Set(u"5");
        bench.Choose(kFilledProtocol, u"仪表乙");
        form.CommandCode = 10;
        bench.dialogs.Answers = {u"2", u"1", u"10"};
        Happen(bench, [](MainForm& f) { f.Check1.Set(true); });
        bench.line.Answer = [this](const std::string&) {
            shownAddresses.push_back(ToUtf8(form.ConMeterAddr.Value()));
            return std::vector<testing::Arrival>{{1, "@05RD13\r"}};
        };
    }

    NativeBench bench;
    MainForm& form = bench.Form();
    std::vector<std::string> shownAddresses;  // at each frame
};

TEST_F(WalkOfAddressesUnderCode13, MovesTheFieldAndLeavesTheAddressOfTheFrames) {
    bench.Start();
    bench.line.RunUntil(502);
    EXPECT_THAT(shownAddresses, ElementsAre("1", "10", "1"));
    const char* frame = "40 30 35 52 44 31 33 30 30 0D";  // check word 13: 30 ^ 35 ^ 52 ^ 44
    EXPECT_THAT(bench.SentFrames(), ElementsAre(frame, frame, frame));
    EXPECT_EQ(ToUtf8(form.AddressText), " 30 35");
}

TEST_F(WalkOfAddressesUnderCode13, NamesTheAddressOfTheFieldInTheRecord) {
    bench.Start();
    bench.line.RunUntil(402);
    EXPECT_THAT(bench.Record(), HasSubstr("第 1 次, 向 仪表乙 发送: @05RD1300\\0D   收到: \r\n@05RD13\\0D\r\n"
                                          "CRC校验正确       读取 1# 仪表的动态数据"));
    EXPECT_THAT(bench.Record(), HasSubstr("     读取 10# 仪表的动态数据"));
}

TEST_F(WalkOfAddressesUnderCode13, LeavesTheAddressToTheNextProtocolThatComposesIt) {
    bench.Start();
    bench.line.RunUntil(402);
    bench.Choose(testing::kNativeProtocol, u"仪表甲");
    EXPECT_EQ(ToUtf8(form.AddressText), " 30 41");
    EXPECT_THAT(bench.dialogs.Shown, ::testing::SizeIs(3));
}

}  // namespace
}  // namespace commtest
