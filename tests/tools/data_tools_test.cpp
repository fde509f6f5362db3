#include "tools/data_tools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_of.h"
#include "tools/tool_bench.h"

namespace commtest {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::PressedTool;
using ::testing::SizeIs;
using testing::ToolBench;

constexpr TextView kSpare = u"备用";

// --- Before it is opened ---

TEST(ToolBeforeItIsOpened, IsNotShownAndItsClockStands) {
    ToolBench bench;
    EXPECT_FALSE(bench.tools.Window.Visible());
    EXPECT_FALSE(bench.tools.Timer1.Enabled());
    EXPECT_EQ(ToUtf8(bench.tools.StatusBar1.Value()), "");
}

TEST(ToolBeforeItIsOpened, HasFifteenSpareProtocolButtons) {
    ToolBench bench;
    EXPECT_THAT(bench.tools.DataCrcMode.Captions, SizeIs(15));
    EXPECT_THAT(bench.tools.DataCrcMode.Captions, Each(Text(kSpare)));
}

TEST(ToolBeforeItIsOpened, OffersEightConversions) {
    ToolBench bench;
    EXPECT_THAT(
        bench.tools.OutMode.Captions,
        ElementsAre(u"数值->自定义浮点数", u"自定义浮点数->数值", u"数值->通讯代码", u"通讯代码->数值",
                    u"数值->IEEE-754浮点数", u"IEEE-754浮点数->数值", u"流量表中的累积值", u"计算校验码"));
}

TEST(ToolBeforeItIsOpened, ShowsTheNormalisedInputInHexadecimal) {
    ToolBench bench;
    EXPECT_THAT(bench.tools.ConShowType.Captions, ElementsAre(u"十六进制", u"AscⅡ码"));
    EXPECT_EQ(bench.tools.ConShowType.Chosen(), 0);
}

TEST(ToolBeforeItIsOpened, HasAnEmptyInstrumentListAndAButtonToLeave) {
    ToolBench bench;
    EXPECT_THAT(bench.tools.ConMeterList.Items(), IsEmpty());
    EXPECT_EQ(ToUtf8(bench.tools.Command1[1].Value()), "退    出");
}

// --- Form_Load ---

TEST(OpenedTool, ProtocolsNameTheirButtonsInOrder) {
    ToolBench bench;
    Form_Load(bench.tools, {{u"协议 甲", 21}, {u"协议乙", 3}});
    ASSERT_THAT(bench.tools.DataCrcMode.Captions, SizeIs(15));
    EXPECT_EQ(ToUtf8(bench.tools.DataCrcMode.Captions[0]), "协议 甲");
    EXPECT_EQ(ToUtf8(bench.tools.DataCrcMode.Captions[1]), "协议乙");
    EXPECT_THAT(bench.tools.ProtocolCodes, ElementsAre(21, 3));
}

TEST(OpenedTool, ButtonsBeyondTheProtocolsStaySpareAndHoldNoCode) {
    ToolBench bench;
    bench.Load({21, 3});
    for (int button = 2; button < 15; ++button) {
        EXPECT_EQ(bench.tools.DataCrcMode.Captions.at(static_cast<std::size_t>(button)), kSpare);
        EXPECT_EQ(ErrorOf([&] { DataCrcMode_Click(bench.tools, button); }), 9) << button;
        EXPECT_EQ(bench.tools.ProtocolCode, 21);
    }
}

TEST(OpenedTool, FifteenProtocolsLeaveNoSpareButton) {
    ToolBench bench;
    bench.Load({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    EXPECT_EQ(ToUtf8(bench.tools.DataCrcMode.Captions.at(14)), "P15");
    bench.tools.DataCrcMode.Choose(14);
    EXPECT_EQ(bench.tools.ProtocolCode, 15);
}

TEST(OpenedTool, ProtocolBeyondTheButtonsHasNone) {
    ToolBench bench;
    bench.Load({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    EXPECT_THAT(bench.tools.DataCrcMode.Captions, SizeIs(15));
    EXPECT_THAT(bench.tools.ProtocolCodes, SizeIs(16));
}

TEST(OpenedTool, ChoosesCheckWordsAndTheFirstProtocol) {
    ToolBench bench;
    bench.Load({31, 11});
    EXPECT_EQ(bench.tools.OutMode.Chosen(), 7);
    EXPECT_EQ(bench.tools.CurrentMode, 7);
    EXPECT_EQ(ToUtf8(bench.tools.Command1[0].Value()), "计算校验码");
    EXPECT_EQ(bench.tools.DataCrcMode.Chosen(), 0);
    EXPECT_EQ(bench.tools.ProtocolCode, 31);
}

TEST(OpenedTool, WithoutProtocolsHasNoProtocolCode) {
    ToolBench bench;
    bench.Load({});
    EXPECT_TRUE(bench.tools.Window.Visible());
    EXPECT_EQ(bench.tools.ProtocolCode, 0);
    EXPECT_EQ(bench.tools.DataCrcMode.Chosen(), -1);
    EXPECT_THAT(bench.tools.DataCrcMode.Captions, Each(Text(kSpare)));
}

struct VersionCase {
    ProgramVersion version;
    std::string caption;
};

TEST(OpenedTool, TitleNamesTheVersionWithTwoDigitsBehindThePoints) {
    for (const VersionCase& one : {VersionCase{{1, 2, 3}, "通讯协议校验码工具 V 1.02.03"},
                                   VersionCase{{12, 34, 5}, "通讯协议校验码工具 V 12.34.05"},
                                   VersionCase{{0, 0, 123}, "通讯协议校验码工具 V 0.00.123"}}) {
        ToolBench bench;
        bench.program.Number = one.version;
        bench.Load({11});
        EXPECT_EQ(ToUtf8(bench.tools.Caption.Value()), one.caption);
    }
}

TEST(OpenedTool, ShowsDateAndTime) {
    ToolBench bench;
    bench.line.SetWallClock({2023, 1, 2, 3, 4, 5});
    bench.Load({11});
    EXPECT_EQ(ToUtf8(bench.tools.StatusBar1.Value()), "2023-01-02  03:04:05");
}

TEST(OpenedTool, ClockTicksEachSecond) {
    ToolBench bench;
    bench.line.TimerTick = [&](int) { Timer1_Timer(bench.tools); };
    bench.line.Drive(bench.tools.Timer1);
    bench.line.SetWallClock({2023, 12, 31, 23, 59, 58});
    bench.Load({11});
    bench.line.RunUntil(1999);
    EXPECT_EQ(ToUtf8(bench.tools.StatusBar1.Value()), "2023-12-31  23:59:59");
    bench.line.RunUntil(2000);
    EXPECT_EQ(ToUtf8(bench.tools.StatusBar1.Value()), "2024-01-01  00:00:00");
}

// --- Its options ---

TEST(ToolOptions, ConversionNamesTheActionOfTheButton) {
    ToolBench bench;
    bench.Load({11});
    const std::vector<std::string> captions = {
        "数值->自定义浮点数",   "自定义浮点数->数值",   "数值->通讯代码",   "通讯代码->数值",
        "数值->IEEE-754浮点数", "IEEE-754浮点数->数值", "流量表中的累积值", "计算校验码"};
    for (int mode = 0; mode < 8; ++mode) {
        bench.tools.OutMode.Choose(mode);
        EXPECT_EQ(bench.tools.CurrentMode, mode);
        EXPECT_EQ(ToUtf8(bench.tools.Command1[0].Value()), captions[static_cast<std::size_t>(mode)]);
    }
}

TEST(ToolOptions, ConversionLeavesTheBoxes) {
    PressedTool bench(7, 11, "@01RD");
    bench.tools.OutMode.Choose(1);
    EXPECT_EQ(bench.Input(), "@01RD");
    EXPECT_EQ(bench.Result(), "@01RD17\r");
    EXPECT_EQ(bench.Explanation(), "was");
}

TEST(ToolOptions, ProtocolGivesItsCode) {
    ToolBench bench;
    bench.Load({31, 11, 3});
    bench.tools.DataCrcMode.Choose(2);
    EXPECT_EQ(bench.tools.ProtocolCode, 3);
    bench.tools.DataCrcMode.Choose(1);
    EXPECT_EQ(bench.tools.ProtocolCode, 11);
}

TEST(ToolOptions, ChosenProtocolIsTheOneOfTheCheckWord) {
    ToolBench bench;
    bench.Load({31, 11, 21});
    bench.Type("010300000001");
    bench.Press();
    EXPECT_EQ(bench.Result(), "");
    bench.tools.DataCrcMode.Choose(2);
    bench.Press();
    EXPECT_EQ(bench.Result(), "FB");
}

// --- An empty input, the refusals, the end ---

TEST(ToolButton, DoesNothingAtAllWithAnEmptyInputInEveryMode) {
    for (int mode = 0; mode < 8; ++mode) {
        for (const int code : {2, 3, 11, 21, 31, 41}) {
            PressedTool bench(mode, code, "");
            EXPECT_EQ(bench.Input(), "");
            EXPECT_EQ(bench.Result(), "was") << mode;
            EXPECT_EQ(bench.Explanation(), "was") << mode;
            EXPECT_EQ(bench.Normalised(), "");
            EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
        }
    }
}

TEST(ToolButton, ToLeaveClosesTheWindowAndStopsItsClock) {
    ToolBench bench;
    bench.Load({11});
    Command1_Click(bench.tools, 1);
    EXPECT_FALSE(bench.tools.Window.Visible());
    EXPECT_FALSE(bench.tools.Timer1.Enabled());
}

TEST(ToolButton, ToLeaveConvertsNothing) {
    ToolBench bench;
    bench.Choose(2, 11);
    bench.Type("1234");
    bench.Leave("was", "was");
    Command1_Click(bench.tools, 1);
    EXPECT_EQ(bench.Result(), "was");
    EXPECT_EQ(bench.Explanation(), "was");
}

TEST(ToolOpenedAnew, KeepsOnlyItsInputAndStartsWithCheckWordsAgain) {
    PressedTool bench(2, 11, "1234");
    Form_Unload(bench.tools);
    bench.Load({31, 32});
    EXPECT_TRUE(bench.tools.Window.Visible());
    EXPECT_TRUE(bench.tools.Timer1.Enabled());
    EXPECT_EQ(bench.Input(), "1234");
    EXPECT_EQ(bench.Result(), "");
    EXPECT_EQ(bench.Explanation(), "");
    EXPECT_EQ(bench.Normalised(), " 31 32 33 34");
    EXPECT_EQ(bench.tools.CurrentMode, 7);
    EXPECT_EQ(bench.tools.ProtocolCode, 31);
}

TEST(ToolOpenedAnew, WithFewerProtocolsHasSpareButtonsAgain) {
    ToolBench bench;
    bench.Load({11, 12, 13});
    Form_Unload(bench.tools);
    bench.Load({31});
    EXPECT_EQ(ToUtf8(bench.tools.DataCrcMode.Captions.at(0)), "P31");
    EXPECT_EQ(bench.tools.DataCrcMode.Captions.at(1), kSpare);
    EXPECT_EQ(ErrorOf([&] { DataCrcMode_Click(bench.tools, 1); }), 9);
}

TEST(ToolOpenedAnew, WithoutProtocolsForgetsTheChosenOne) {
    ToolBench bench;
    bench.Load({11});
    Form_Unload(bench.tools);
    bench.Load({});
    EXPECT_EQ(bench.tools.ProtocolCode, 0);
    EXPECT_EQ(bench.tools.DataCrcMode.Chosen(), -1);
    EXPECT_EQ(ErrorOf([&] { DataCrcMode_Click(bench.tools, 0); }), 9);
}

}  // namespace
}  // namespace commtest
