#include "app/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/list_clicks.h"
#include "commands/operation_menus.h"
#include "commands/search_panel.h"
#include "commands/toolbar_commands.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::BenchSession;
using ::testing::ElementsAre;
using testing::Happen;
using ::testing::IsEmpty;
using testing::NativeBench;
using ::testing::SizeIs;
namespace frames = testing::frames;

// --- A new session ---

TEST(NewSession, ShowsItsDesignTexts) {
    BenchSession bench;
    const MainForm& form = bench.Form();
    EXPECT_EQ(ToUtf8(form.StatusBar1[0].Value()), "衡岫仪器公司");
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "    欢迎使用本软件");
    EXPECT_EQ(ToUtf8(form.ConDelayTime.Value()), "100");
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    EXPECT_EQ(form.ShowMode.Chosen(), 0);
    EXPECT_EQ(form.WriteType.Chosen(), 1);
    EXPECT_FALSE(form.FindFrame.Visible());
    EXPECT_FALSE(form.InputText.Visible());
    EXPECT_TRUE(form.ConMyCommDriver.Enabled());
}

TEST(NewSession, CountsNothingYet) {
    BenchSession bench;
    const MainForm& form = bench.Form();
    EXPECT_EQ(form.SendCount + form.IncompleteCount + form.NoReplyCount + form.CheckErrorCount, 0);
    EXPECT_EQ(form.MultiAddressIndex, 0);
    EXPECT_EQ(form.ShowTypeStep, 0);
}

TEST(NewSession, HasAButtonForEachProtocolRowOfTheCatalogue) {
    BenchSession bench;
    const MainForm& form = bench.Form();
    EXPECT_THAT(form.ProtocolCodeOfType, ElementsAre(11, 12, 13, 21, 22, 23, 31, 32, 33, 34, 35, 41, 42, 51));
    EXPECT_EQ(form.ConMeterType.Captions, form.ConCommTypeList.Items());
    EXPECT_EQ(ToUtf8(form.ConMeterType.Captions.at(13)), "ModBus-RTU协议-M46T");
}

TEST(LoadCatalogueLists, LoadsProtocolsDataTypesAndTheLayoutOfTheGrid) {
    testing::FormBench bench;
    const auto add = [&](const Text& use, const Text& number, const Text& field, const Text& width) {
        bench.store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度", u"合并", u"对齐"},
                            {use, number, field, width, u"0", u"0"});
    };
    add(u"协议规定", u"1", u"TQ仪表协议", u"11");
    add(u"数据类型", u"1", u"原码", u"0");
    add(u"仪表通信", u"2", u"地址", u"700");
    LoadCatalogueLists(bench.form);
    EXPECT_THAT(bench.form.ConCommTypeList.Items(), ElementsAre(u"TQ仪表协议"));
    EXPECT_THAT(bench.form.ConDataTypeList.Items(), ElementsAre(u"原码"));
    EXPECT_EQ(bench.form.ParameterGrid().Column(2).width, 700);
}

// --- The handlers ---

TEST(SessionHandlers, AddressFieldComposesTheAddress) {
    NativeBench bench;
    bench.Form().ConMeterAddr.Set(u"10");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 30 41");
}

TEST(SessionHandlers, ProtocolListChoosesButtonInstrumentAndGrid) {
    NativeBench bench;
    bench.Form().ConCommTypeList.Set(u"ModBus-RTU协议");
    bench.Form().ConCommTypeList.Click();
    EXPECT_EQ(bench.Form().ConMeterType.Chosen(), 6);
    EXPECT_EQ(bench.Form().ProtocolCode, 31);
    EXPECT_EQ(bench.Cell(1, 1), "");
}

TEST(SessionHandlers, InstrumentListLoadsTheParameters) {
    NativeBench bench;
    bench.Form().ParameterGrid().SetCell(1, 1, {});
    bench.Form().ConMeterName[0].Click();
    EXPECT_EQ(bench.Cell(1, 1), "给定值");
}

TEST(SessionHandlers, TabLoadsItsList) {
    NativeBench bench;
    bench.Form().SSTab2.Choose(2);
    EXPECT_EQ(ToUtf8(bench.Form().MSHFlexGrid1[1].Cell(1, 3)), "仪表甲");
}

TEST(SessionHandlers, RefreshOfTheInstrumentListLoadsItAnew) {
    NativeBench bench;
    bench.Form().SSTab2.Choose(2);
    bench.Add(u"仪表乙", testing::kNativeProtocol, u"1102", {{u"温度", u"0300", u"2", u"D", u"0"}});
    ASSERT_EQ(bench.Form().MSHFlexGrid1[1].Rows(), 2);
    ChooseGridMenuEntry(bench.Form(), 1, 3, 1);
    ASSERT_EQ(bench.Form().MSHFlexGrid1[1].Rows(), 3);
    EXPECT_EQ(ToUtf8(bench.Form().MSHFlexGrid1[1].Cell(2, 3)), "仪表乙");
    EXPECT_EQ(bench.Form().SSTab2.Chosen(), 2);
}

TEST(SessionHandlers, WriteTypeBringsTheGridIntoView) {
    BenchSession bench;
    bench.Form().SSTab2.Choose(1);
    bench.Form().WriteType.Choose(1);
    EXPECT_EQ(bench.Form().SSTab2.Chosen(), 0);
}

TEST(SessionHandlers, TickBoxesOfSeveralInstrumentsAndOfTheIntervalAskTheirQuestions) {
    BenchSession bench;
    bench.Form().Check1.Set(true);
    bench.Form().TimeSetup.Set(true);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("请输入仪表的总台数", "请输入时间间隔,单位为 分钟 "));
}

TEST(SessionHandlers, RowOfTheInstrumentListChoosesItsInstrument) {
    NativeBench bench;
    bench.Add(u"仪表乙", u"TQ仪表协议-定制累加和", u"1202", {{u"温度", u"2100", u"2", u"RW", u"0"}});
    bench.Form().SSTab2.Choose(2);
    Happen(bench, [](MainForm& form) {
        form.MSHFlexGrid1[1].Select(2, 1);
        MSHFlexGrid1_Click(form, 1);
    });
    EXPECT_EQ(ToUtf8(bench.Form().ConCommTypeList.Value()), "TQ仪表协议-定制累加和");
    EXPECT_EQ(ToUtf8(bench.Form().ConMeterName[0].Value()), "仪表乙");
    EXPECT_EQ(bench.Cell(1, 1), "温度");
    EXPECT_EQ(bench.Form().ProtocolCode, 12);
    EXPECT_EQ(bench.Form().SSTab2.Chosen(), 0);
}

// --- One instrument, end to end ---

TEST(SessionWithOneInstrument, DecodesDynamicAndStaticRepliesIntoTheGrid) {
    NativeBench bench;
    bench.WillAnswer({frames::kDynamicReply, frames::kStaticReply});
    bench.Start();
    bench.line.RunUntil(402);
    EXPECT_EQ(bench.Cell(6, 7), "C800");
    EXPECT_EQ(bench.Cell(6, 9), "200");
    EXPECT_EQ(bench.Cell(7, 9), "100");
    EXPECT_EQ(bench.Cell(1, 9), "200");
    EXPECT_EQ(bench.Cell(2, 8), "100");
    EXPECT_EQ(bench.Cell(2, 9), "10.0");
    EXPECT_EQ(ToUtf8(bench.Form().ConCommMessage[2].Value()),
              "总计通讯: 2 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %");
}

TEST(SessionWithOneInstrument, HexadecimalDisplayGivesTheSameGrid) {
    NativeBench bench;
    bench.Form().ShowMode.Choose(1);
    bench.WillAnswer({frames::kDynamicReply});
    bench.Start();
    bench.line.RunUntil(301);
    EXPECT_EQ(bench.Cell(7, 9), "100");
    EXPECT_EQ(bench.Record(),
              "第 1 次, 向 仪表甲 发送:  40 30 31 52 44 31 37 0D   收到: \r\n"
              "40 30 31 52 44 43 38 30 30 36 34 30 30 36 45 0D\r\n"
              "CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n");
}

TEST(SessionWithOneInstrument, CountsEachKindOfFailureOnce) {
    NativeBench bench;
    bench.WillAnswer({"40 30 31 52 44 43 38 30 30 36 34 30 30 36 46 0D", "40 30 31 52", ""});
    bench.Start();
    bench.line.RunUntil(3300);
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(bench.Form().IncompleteCount, 1);
    EXPECT_EQ(bench.Form().NoReplyCount, 1);
    EXPECT_EQ(bench.Cell(6, 9), "");
}

// --- A change of instrument ---

class ChangeOfInstrument : public ::testing::Test {
  protected:
    ChangeOfInstrument() {
        bench.Add(u"仪表乙", testing::kNativeProtocol, u"1102", {{u"温度", u"0300", u"2", u"D", u"0"}});
    }

    NativeBench bench;
    MainForm& form = bench.Form();
};

TEST_F(ChangeOfInstrument, LeavesTheRowsOfPollingAndOfTheFirstData) {
    form.CurrentRow = 7;
    form.FirstDataRow = 4;
    bench.Choose(testing::kNativeProtocol, u"仪表乙");
    EXPECT_EQ(form.CurrentRow, 7);
    EXPECT_EQ(form.FirstDataRow, 4);
}

TEST_F(ChangeOfInstrument, WhileRunningTheNextReplyWalksOverTheNewRows) {
    bench.AnswersEachFrame(frames::kStaticReply);
    form.CommandCode = 20;
    bench.Start();
    bench.line.RunUntil(350);
    EXPECT_EQ(bench.Cell(1, 9), "200");
    bench.Choose(testing::kNativeProtocol, u"仪表乙");
    EXPECT_EQ(bench.Cell(1, 7), "0");
    bench.line.RunUntil(402);
    EXPECT_EQ(bench.Cell(1, 1), "温度");
    EXPECT_EQ(bench.Cell(1, 7), "C800");
    EXPECT_EQ(bench.Cell(1, 9), "200");
    EXPECT_TRUE(form.IsRunning());
}

TEST_F(ChangeOfInstrument, EmptiesTheSamplesSoThatTheNextRepliesAreKept) {
    bench.AnswersEachFrame(frames::kDynamicReply);
    bench.Start();
    bench.line.RunUntil(301);
    EXPECT_EQ(ToUtf8(form.DynamicSample), " 40 30 31 52 44 43 38 30 30 36 34 30 30 36 45 0D");
    bench.Choose(testing::kNativeProtocol, u"仪表乙");
    EXPECT_EQ(ToUtf8(form.DynamicSample), "");
    EXPECT_THAT(form.ConSendOutString[0].Items(), IsEmpty());
}

// --- The redraw of the grid ---

// The walk over the rows switches the redraw off, a decimal point within it on again; an error ends the walk
// there.
TEST(RedrawOfTheGrid, IsSwitchedOnInTheMiddleOfAWalkByADecimalPoint) {
    for (const Text& decimals : {Text(u"0"), Text(u"1")}) {
        BenchSession bench;
        bench.Add(u"仪表丙", testing::kNativeProtocol, u"1101",
                  {{u"甲", u"0100", u"2", u"RW", decimals}, {u"乙", u"0102", u"no number", u"RW", u"0"}});
        bench.Choose(testing::kNativeProtocol, u"仪表丙");
        bench.Form().CommandCode = 20;
        bench.WillAnswer({frames::kStaticReply});
        bench.Press(4);
        bench.line.RunUntil(301);
        EXPECT_EQ(bench.Cell(1, 8), "200");
        EXPECT_EQ(bench.Form().ParameterGrid().Redraw, decimals == u"1");
    }
}

}  // namespace
}  // namespace commtest
