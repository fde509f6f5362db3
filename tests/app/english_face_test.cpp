#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/chip_records.h"
#include "catalogue/shipped_catalogue.h"
#include "commands/startup.h"
#include "commands/toolbar_commands.h"
#include "session/events.h"
#include "session/grid_rows.h"
#include "session/port_settings.h"
#include "session/reply_routing.h"
#include "support/bench_session.h"
#include "support/sqlite_store.h"

namespace commtest {
namespace {

using testing::BenchSession;
using ::testing::ElementsAre;
using testing::Happen;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kUnwritable = "注意:参数没有W属性,数据无法修改！";

// A session of the English face with one instrument, chosen.
struct EnglishBench : BenchSession {
    explicit EnglishBench(const Text& protocol, const Text& code, const Text& length = u"2",
                          const Text& attribute = u"RW")
        : BenchSession(kEnglishFace) {
        std::vector<testing::TestParameter> rows(5, {u"头", u"0000", u"2", u"R", u"0"});
        for (const Text address : {u"0010", u"0012", u"0014"})
            rows.push_back({u"参数", address, length, attribute, u"0"});
        Add(u"仪表", protocol, code, rows);
        Choose(protocol, u"仪表");
    }

    std::vector<std::string> Headings() {
        std::vector<std::string> headings;
        for (int col = 0; col < column::kCount; ++col) headings.push_back(Cell(0, col));
        return headings;
    }
};

// --- The words ---

TEST(EnglishFace, ButtonFourSaysRunAndStop) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    EXPECT_EQ(ToUtf8(bench.Form().StartStopCaption()), "Run");
    bench.Press(toolbar::kStartStop);
    EXPECT_EQ(ToUtf8(bench.Form().StartStopCaption()), "Stop");
}

TEST(EnglishFace, LineOfTheRecordBeginsWithTheCount) {
    EnglishBench bench(u"ModBus-RTU协议", u"310100");
    bench.WillAnswer({"01 03 02 00 64 B9 AF"});
    bench.Form().CommandCode = 50;
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(320);
    EXPECT_EQ(bench.Record(),
              "1 time, to 仪表 send:  01 03 00 10 00 01 85 CF   receive: \r\n01 03 02 00 64 B9 AF\r\n"
              "CRC校验正确  成功读取 1# 仪表的静态/动态数据\r\n\r\n");
}

TEST(EnglishFace, StatisticsHaveAnEnglishHeadAndTheChineseTail) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    MainForm& form = bench.Form();
    form.SendCount = 12;
    form.NoReplyCount = 3;
    ShowStatistics(form);
    EXPECT_EQ(ToUtf8(form.ConCommMessage[1].Value()), "Times: 12");
    EXPECT_EQ(ToUtf8(form.ConCommMessage[0].Value()),
              "数据不完整 0 次;校验出错 0 次;无应答 3 次; 错误率 25.00 %");
    EXPECT_EQ(ToUtf8(form.ConCommMessage[2].Value()),
              "Times: 12         数据不完整 0 次;校验出错 0 次;无应答 3 次; 错误率 25.00 %");
}

TEST(EnglishFace, SilentAsciiInstrumentIsToldInEnglishAndLoggedWithTheChineseTail) {
    EnglishBench bench(u"ModBus-Ascii协议", u"210100");
    bench.Form().CommandCode = 50;
    bench.Form().ConAutoSave[1].Set(true);
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(1700);
    const std::string words =
        "receive:  instrument has no answering  note: instrument has no answering or return to "
        "un-identified data";
    EXPECT_EQ(bench.Record(),
              "1 time, to 仪表 send: :010300100001EB\\0D\\0A   receive: \r\n\r\n" + words + "\r\n\r\n");
    EXPECT_EQ(ToUtf8(bench.files.ReadWhole(u"ErrorComm.ini")).substr(19),
              "1 time, to 仪表 send: :010300100001EB\\0D\\0A   receive: \r\n\r\n" + words +
                  "        串口设置: 9600,N,8,1\r\n\r\n");
}

TEST(EnglishFace, PortPanelShowsTheSettingsInUpperCase) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    bench.line.SetSettings(u"9600,n,8,1");
    ShowPortStatus(bench.Form());
    EXPECT_EQ(ToUtf8(bench.Form().StatusBar1[1].Value()),
              "COM1  9600,N,8,1                                                 COM Port:  Close");
    bench.line.SetPortOpen(true);
    ShowPortStatus(bench.Form());
    EXPECT_EQ(ToUtf8(bench.Form().StatusBar1[1].Value()),
              "COM1  9600,N,8,1                                                 COM Port:  Open");
}

TEST(EnglishFace, ClockPanelHasTheDayFirst) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    bench.line.SetWallClock({2024, 5, 6, 7, 8, 9});
    Happen(bench, [](MainForm& form) { TimerTicks(form, 0); });
    EXPECT_EQ(ToUtf8(bench.Form().StatusBar1[2].Value()), "06 / 05 / 2024   07:08:09");
}

TEST(EnglishFace, GridHasItsHeadingsAndThatOfTheChineseFaceOverColumnSix) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    EXPECT_THAT(bench.Headings(),
                ElementsAre("serial", "parameter name", "address", "length", "attribute", "Dec", "RE 读值",
                            "RR/RD", "value1", "value2", "modified value"));
}

TEST(EnglishFace, CaptionsAreItsOwn) {
    struct Case {
        TextView caption;
        const char* expected;
    };
    const Captions& captions = kEnglishTexts.captions;
    for (const Case& one : {Case{captions.advancedSettings, "Advanced Settings"},
                            Case{captions.anyLength, "arbitrary length"},
                            Case{captions.stopScrolling, "stop rolling screen"},
                            Case{captions.capture, "Data collection"},
                            Case{captions.replay, "Data demonstration"},
                            Case{captions.saveRecord, "Automatic store record"},
                            Case{captions.saveErrors, "store error record"},
                            Case{captions.search, "Instrument Search"},
                            Case{captions.searchStart, "Start"},
                            Case{captions.searchClose, "Close"},
                            Case{captions.searchPort, "COM Port"},
                            Case{captions.searchEndAddress, "End Address"},
                            Case{captions.searchStartAddress, "Start Address"},
                            Case{captions.searchBaudRates, "Baud Rate"},
                            Case{captions.instrumentSelection, "Instrument Selection"},
                            Case{captions.instrumentName, "Name"},
                            Case{captions.instrumentAddress, "Address"},
                            Case{captions.parameterCount, "Parameter Number"},
                            Case{captions.portFields[0], "COM Port："},
                            Case{captions.portFields[1], "Baud Rate："},
                            Case{captions.portFields[2], "Data Bit："},
                            Case{captions.portFields[3], "Parity Check："},
                            Case{captions.portFields[4], "Stop Bit："},
                            Case{captions.hexadecimal, "Hex"},
                            Case{captions.ascii, " Ascii"},
                            Case{captions.displaySwitch, "display switch"}})
        EXPECT_EQ(ToUtf8(one.caption), one.expected);
}

TEST(EnglishFace, PromptsOfTheGridStayChinese) {
    EnglishBench bench(u"TQ仪表协议", u"110100", u"2", u"R");
    bench.Click(6, column::kNewValue);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre(kUnwritable));
}

// --- The start ---

class EnglishStart : public ::testing::Test {
  protected:
    EnglishStart() { store.Offer(u"folder/通讯数据.mdb", FillWithShippedCatalogue); }

    void Start() {
        RunEvent(form, [this] { Form_Activate(form); });
    }

    testing::VirtualLine line;
    testing::FakeDialogs dialogs;
    testing::FakeProgramFiles files;
    testing::FakeSettings settings;
    testing::SqliteStore store;
    testing::FakeProgram program;
    Session session{{line, dialogs, line, files, store, settings, program}, kEnglishFace};
    MainForm& form = session.Form();
};

TEST_F(EnglishStart, TitleIsThatOfTheSeriesAndEndsInTheVersion) {
    Start();
    EXPECT_EQ(ToUtf8(form.Caption.Value()), "KERO- series instruments communication demo software V 1.02.03");
}

TEST_F(EnglishStart, DoubleClickOnTheFirstPanelOffersNoOtherCatalogue) {
    Start();
    StatusBar1_PanelDblClick(form, 1);
    EXPECT_THAT(dialogs.Shown, IsEmpty());
    EXPECT_EQ(ToUtf8(settings.Values[u"SoftSeting"]), "1000 1 16 0 0 1");
    EXPECT_EQ(ToUtf8(form.StatusBar1[0].Value()), "衡岫仪器公司    本地数据库");
}

// --- What the face lacks ---

TEST(EnglishFace, IntervalTimerAsksNothingAndStartsNothing) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    Happen(bench, [](MainForm& form) { form.TimeSetup.Set(true); });
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
    EXPECT_FALSE(bench.Form().IsRunning());
    EXPECT_FALSE(bench.Form().IntervalTimer().Enabled());
}

TEST(EnglishFace, ChoiceOfAWriteTypeBringsNoTab) {
    EnglishBench bench(u"ModBus-RTU协议-标准流量表", u"350100");
    bench.Form().SSTab2.Choose(1);
    Happen(bench, [](MainForm& form) { form.WriteType.Choose(2); });
    EXPECT_TRUE(bench.Form().SSTab2.IsChosen(1));
}

TEST(EnglishFace, FlowMeterTakesFourBytesWithTwoEntriesAndOneMessage) {
    EnglishBench bench(u"ModBus-RTU协议-标准流量表", u"350300", u"4");
    Happen(bench, [](MainForm& form) { form.WriteType.Choose(2); });
    bench.Form().CommandCode = 50;
    bench.Click(6, column::kNewValue);
    bench.TypeAndEnter(u"100");
    bench.line.RunUntil(2000);
    bench.Click(6, column::kNewValue);
    bench.TypeAndEnter(u"100");
    bench.line.RunUntil(4000);
    std::vector<std::string> writes;
    for (const std::string& frame : bench.SentFrames())
        if (frame.starts_with("01 06") || frame.starts_with("01 10")) writes.push_back(frame);
    EXPECT_THAT(writes, ElementsAre("01 06 00 10 42 C8 B9 39", "01 06 00 11 00 00 D9 CF"));
    EXPECT_THAT(bench.dialogs.Texts(),
                ElementsAre(" 参数占用了4个字节的地址,所以请再操作一次,修改方可完成！"));
}

TEST(EnglishFace, PhaseInTheNameIsNotHeededInAReply) {
    BenchSession bench(kEnglishFace);
    std::vector<testing::TestParameter> rows(5, {u"头", u"0000", u"2", u"R", u"0"});
    rows.push_back({u"参数", u"0010", u"4", u"RW", u"0"});
    bench.Add(u"三相表", u"ModBus-RTU协议", u"310300", rows);
    bench.Choose(u"ModBus-RTU协议", u"三相表");
    bench.WillAnswer({"01 03 04 40 50 00 00 EF E2"});
    bench.Form().CommandCode = 50;
    bench.Press(toolbar::kStartStop);
    bench.line.RunUntil(320);
    EXPECT_EQ(bench.SentFrames().at(0), "01 03 00 10 00 02 C5 CE");  // the request heeds it
    EXPECT_EQ(bench.Cell(6, column::kValue), "3.25");
}

TEST(EnglishFace, ImportTakesTheTwoProtocolsThatItLacksForNativeOnes) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    bench.files.TextFiles[u"TQ.ini"] =
        u"DEVICE A\r\nTYPE 230101\r\n1 PV 2010 R\r\nEND\r\nDEVICE B\r\nTYPE 350101\r\n1 PV 2010 R\r\nEND\r\n"
        u"DEVICE C\r\nTYPE 340101\r\n1 PV 2010 R\r\nEND\r\nDEVICE END\r\n";
    bench.Press(toolbar::kImport);
    const StoreRows rows = bench.store->Query(u"SELECT 协议 FROM 仪表_名称 ORDER BY 仪表ID");
    ASSERT_THAT(rows.rows, SizeIs(3));
    EXPECT_EQ(ToUtf8(rows.At(0, 0)), "TQ仪表协议");
    EXPECT_EQ(ToUtf8(rows.At(1, 0)), "TQ仪表协议");
    EXPECT_EQ(ToUtf8(rows.At(2, 0)), "ModBus-RTU协议-TQ记录仪板卡");
}

TEST(EnglishFace, ChipRecordShowsNoDescription) {
    EnglishBench bench(u"TQ仪表协议", u"110100");
    bench.store->AddRow(u"仪表_芯片", {u"编号", u"文件名", u"日期", u"实例", u"属性", u"功能简述"},
                        {u"110100", u"A.HEX", u"2026-06-02", u"标准", u"量产", u"带报警。"});
    Happen(bench, ShowChipFilePanel);
    EXPECT_EQ(ToUtf8(bench.Form().ConCpudataCombo[2].Value()), "A.HEX");
    EXPECT_EQ(ToUtf8(bench.Form().ConCpudataCombo[5].Value()), "量产");
    EXPECT_EQ(ToUtf8(bench.Form().ConCpudataText.Value()), "");
}

}  // namespace
}  // namespace commtest
