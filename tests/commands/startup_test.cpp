#include "commands/startup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>

#include "app/session.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_selection.h"
#include "catalogue/shipped_catalogue.h"
#include "commands/toolbar_commands.h"
#include "session/events.h"
#include "support/fakes.h"
#include "support/sqlite_store.h"
#include "support/virtual_line.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const Text kLocalFile = u"folder/通讯数据.mdb";
const Text kServer = u"driver={SQL Server};Server=\\\\srv\\prog;uid=commtest;pwd=p;database=d";
const Text kServerFile = u"Server \\\\srv\\prog\r\nUser commtest\r\nPassword p\r\nDatabase d\r\nLast x\r\n";
const Text kServersProgram = u"\\\\srv\\prog\\commtest.EXE";

// Knows how often each statement was asked while it did not have to keep its answers.
class AskedStore : public testing::SqliteStore {
  public:
    using SqliteStore::Query;
    StoreRows Query(const Text& sql) override {
        if (!keeps_) ++asked_[sql];
        return SqliteStore::Query(sql);
    }
    bool KeepAnswers(bool keep) override { return std::exchange(keeps_, keep); }

    bool Keeps() const { return keeps_; }
    int MostAsked() const {
        int most = 0;
        for (const auto& [sql, count] : asked_) most = std::max(most, count);
        return most;
    }

  private:
    bool keeps_ = false;
    std::map<Text, int> asked_;
};

class StartUp : public ::testing::Test {
  protected:
    StartUp() {
        store.Offer(kLocalFile, FillWithShippedCatalogue);
        files.ErrorFile = "E-0001";
        files.TextFiles[u"使用说明.ini"] = u"用法";
    }

    void Start() {
        RunEvent(form, [this] { Form_Activate(form); });
    }

    void StartWith(const Text& softSetting) {
        settings.Values[u"SoftSeting"] = softSetting;
        Start();
    }

    std::string Setting(const Text& key) { return ToUtf8(settings.Values[key]); }
    std::string Panel(std::size_t panel) { return ToUtf8(form.StatusBar1[panel - 1].Value()); }
    std::string Protocol() { return ToUtf8(form.ConCommTypeList.Value()); }
    std::string Instrument() { return ToUtf8(form.ConMeterName[0].Value()); }

    testing::VirtualLine line;
    testing::FakeDialogs dialogs;
    testing::FakeProgramFiles files;
    testing::FakeSettings settings;
    AskedStore store;
    testing::FakeProgram program;
    Session session{{line, dialogs, line, files, store, settings, program}};
    MainForm& form = session.Form();
};

// --- The first run ---

TEST_F(StartUp, FirstRunWritesTheThreeSettingsWithTheirDefaults) {
    Start();
    EXPECT_EQ(Setting(u"ShowType"), "1");
    EXPECT_EQ(Setting(u"CommPort"), "9600,N,8,1 COM1");
    EXPECT_EQ(Setting(u"SoftSeting"), "1000 1 16 0 0 1");
    EXPECT_THAT(settings.Values, SizeIs(3));
}

TEST_F(StartUp, FirstRunShowsTheDefaults) {
    Start();
    EXPECT_EQ(ToUtf8(form.ConDelayTime.Value()), "1000");
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "1");
    EXPECT_EQ(ToUtf8(form.ConDataNub.Value()), "16");
    EXPECT_EQ(Protocol(), "TQ仪表协议");
    EXPECT_EQ(Panel(1), "衡岫仪器公司    本地数据库");
    EXPECT_EQ(Panel(2), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
    EXPECT_EQ(form.ShowTypeStep, 1);
    EXPECT_TRUE(form.ConCommString[0].Visible());
    EXPECT_TRUE(form.ConCommString[1].Visible());
}

// --- The steps ---

TEST_F(StartUp, SecondInstanceIsRefusedAndTouchesNothing) {
    program.HasPrevInstance = true;
    Start();
    EXPECT_THAT(dialogs.Texts(), ElementsAre("对不起，本软件已经有一个版本在运行了，请按确定键退出！"));
    EXPECT_TRUE(program.HasEnded);
    EXPECT_FALSE(form.Activated);
    EXPECT_FALSE(store.IsOpen());
    EXPECT_THAT(settings.Values, IsEmpty());
}

TEST_F(StartUp, RunsOnce) {
    Start();
    form.ConDelayTime.Set(u"5");
    form.Caption.Set(u"");
    Start();
    EXPECT_EQ(ToUtf8(form.ConDelayTime.Value()), "5");
    EXPECT_EQ(ToUtf8(form.Caption.Value()), "");
    EXPECT_TRUE(form.Activated);
}

TEST_F(StartUp, StoreNeedNotBeAskedTheSameTwice) {
    Start();
    EXPECT_LE(store.MostAsked(), 1);
    EXPECT_FALSE(store.Keeps());
    ConMeterName_Click(form);
    ConMeterName_Click(form);
    EXPECT_EQ(store.MostAsked(), 2) << "behind the start";
}

TEST_F(StartUp, CatalogueThatComesLaterNeedNotBeAskedTheSameTwice) {
    OpenCatalogueBehindStart(form);
    EXPECT_EQ(Instrument(), "HX-D10智能数字显示控制仪");
    EXPECT_LE(store.MostAsked(), 1);
    EXPECT_FALSE(store.Keeps());
}

TEST_F(StartUp, ChoosesTheFirstTabAndTheDynamicReadInTurn) {
    form.SSTab2.Show(3);
    form.CommandCode = 40;
    Start();
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    EXPECT_EQ(form.CommandCode, 31);
}

TEST_F(StartUp, ShowsErrorFileHelpAndDataTypes) {
    Start();
    EXPECT_EQ(ToUtf8(form.RichTextBox2.WholeText()), "E-0001");
    EXPECT_EQ(ToUtf8(form.RichTextBox1.WholeText()), "用法");
    EXPECT_THAT(form.ConDataTypeList.Items(), SizeIs(11));
    EXPECT_EQ(ToUtf8(form.ConDataTypeList.At(3)), "IEEE-754单精度浮点数");
}

TEST_F(StartUp, LaysTheParameterGridOutByTheCatalogue) {
    Start();
    EXPECT_EQ(form.ParameterGrid().Column(6).width, 1300);
    EXPECT_EQ(form.ParameterGrid().Column(10).alignment, 7);
    EXPECT_EQ(ToUtf8(form.ParameterGrid().Cell(0, 9)), "小数点修正值");
    EXPECT_TRUE(form.ParameterGrid().Redraw);
}

TEST_F(StartUp, TitleEndsInTheVersion) {
    program.Number = {2, 3, 14};
    Start();
    EXPECT_EQ(ToUtf8(form.Caption.Value()), "衡岫TQ系列仪联演示软件(TQ通讯协议) V 2.03.14");
}

TEST_F(StartUp, SearchTakesThePortOfTheSettings) {
    settings.Values[u"CommPort"] = u"9600,N,8,1 COM7";
    Start();
    EXPECT_EQ(ToUtf8(form.ConSettingComm.Value()), "COM7");
}

TEST_F(StartUp, ShowsTheTimeOfDay) {
    Start();
    EXPECT_EQ(Panel(3), "2024年05月06日  12:00:00");
}

// --- ShowType ---

TEST_F(StartUp, LayoutIsPressedAsOftenAsTheSettingSays) {
    struct Case {
        Text stored;
        int step;
        bool conversion;
        bool record;
    };
    for (const Case& layout :
         {Case{u"0", 0, false, true}, Case{u"1", 1, true, true}, Case{u"2", 2, true, false},
          Case{u"3", 0, false, true}, Case{u"4", 1, true, true}, Case{u"2.9", 2, true, false},
          Case{u"-1", 0, false, true}, Case{u"x", 0, false, true}, Case{u"1E9", 1, true, true}}) {
        SCOPED_TRACE(ToUtf8(layout.stored));
        Session other({line, dialogs, line, files, store, settings, program});
        settings.Values[u"ShowType"] = layout.stored;
        Form_Activate(other.Form());
        EXPECT_EQ(other.Form().ShowTypeStep, layout.step);
        EXPECT_EQ(other.Form().ConCommString[0].Visible(), layout.conversion);
        EXPECT_EQ(other.Form().ConCommString[1].Visible(), layout.record);
    }
}

// --- CommPort ---

TEST_F(StartUp, StoredPortFillsTheFiveFields) {
    settings.Values[u"CommPort"] = u"19200,E,7,2 COM3";
    Start();
    std::vector<std::string> fields;
    for (const ListControl& field : form.ConCommSetting) fields.push_back(ToUtf8(field.Value()));
    EXPECT_THAT(fields, ElementsAre("COM3", "19200", "7", "偶校验", "2"));
    EXPECT_EQ(line.CommPort(), 3);
    EXPECT_EQ(ToUtf8(line.Settings()), "19200,E,7,2");
}

TEST_F(StartUp, ParityLettersHaveTheirNames) {
    struct Case {
        Text stored;
        std::string name;
    };
    for (const Case& parity : {Case{u"9600,N,8,1 COM1", "无校验"}, Case{u"9600,O,8,1 COM1", "奇校验"},
                               Case{u"9600,E,8,1 COM1", "偶校验"}, Case{u"9600,M,8,1 COM1", "无校验"}}) {
        Session other({line, dialogs, line, files, store, settings, program});
        settings.Values[u"CommPort"] = parity.stored;
        Form_Activate(other.Form());
        EXPECT_EQ(ToUtf8(other.Form().ConCommSetting[3].Value()), parity.name) << ToUtf8(parity.stored);
    }
}

TEST_F(StartUp, PortWithoutANumberIsPassedOver) {
    settings.Values[u"CommPort"] = u"4800,O,8,1 port";
    Start();
    EXPECT_EQ(ToUtf8(form.ConCommSetting[0].Value()), "port");
    EXPECT_EQ(ToUtf8(form.ConCommSetting[1].Value()), "4800");
    EXPECT_EQ(Protocol(), "TQ仪表协议");
    EXPECT_THAT(dialogs.Shown, IsEmpty());
    EXPECT_TRUE(form.Activated);
}

// --- SoftSeting ---

TEST_F(StartUp, LastSessionIsRestored) {
    StartWith(u"250 12 8 6 2 1");
    EXPECT_EQ(ToUtf8(form.ConDelayTime.Value()), "250");
    EXPECT_EQ(form.DelayStep, 100);
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "12");
    EXPECT_EQ(ToUtf8(form.AddressText), "0C");
    EXPECT_EQ(ToUtf8(form.ConDataNub.Value()), "8");
    EXPECT_EQ(Protocol(), "ModBus-RTU协议");
    EXPECT_EQ(form.ProtocolCode, 31);
    EXPECT_TRUE(form.ConMeterType.IsChosen(6));
    EXPECT_TRUE(form.ShowMode.IsChosen(1));
    EXPECT_EQ(Instrument(), ToUtf8(form.ConMeterName[0].At(2)));
    EXPECT_EQ(ToUtf8(form.MeterCodeText).substr(0, 2), "31");
}

TEST_F(StartUp, EmptyFieldStaysEmptyAndShiftsNoOther) {
    struct Case {
        Text stored;
        std::string delay;
        std::string address;
        std::string count;
        std::string protocol;
    };
    for (const Case& one : {Case{u"1000  16 6 2 1", "1000", "", "16", "ModBus-RTU协议"},
                            Case{u" 7 16 6 2 1", "", "7", "16", "ModBus-RTU协议"},
                            Case{u"1000 7  6 2 1", "1000", "7", "", "ModBus-RTU协议"},
                            Case{u"1000 7 16  2 1", "1000", "7", "16", "TQ仪表协议"},
                            Case{u"   6 2 1", "", "", "", "ModBus-RTU协议"}}) {
        SCOPED_TRACE(ToUtf8(one.stored));
        Session other({line, dialogs, line, files, store, settings, program});
        settings.Values[u"SoftSeting"] = one.stored;
        Form_Activate(other.Form());
        EXPECT_EQ(ToUtf8(other.Form().ConDelayTime.Value()), one.delay);
        EXPECT_EQ(ToUtf8(other.Form().ConMeterAddr.Value()), one.address);
        EXPECT_EQ(ToUtf8(other.Form().ConDataNub.Value()), one.count);
        EXPECT_EQ(ToUtf8(other.Form().ConCommTypeList.Value()), one.protocol);
        EXPECT_EQ(other.Form().ConMeterName[0].Value(), other.Form().ConMeterName[0].At(2));
    }
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

TEST_F(StartUp, SettingsThatWereSavedWithAnEmptyFieldAreRestored) {
    Start();
    form.ConDataNub.Set(u"");
    SaveSettings(form);
    EXPECT_EQ(Setting(u"SoftSeting"), "1000 1  0 0 1");
    Session other({line, dialogs, line, files, store, settings, program});
    Form_Activate(other.Form());
    EXPECT_EQ(ToUtf8(other.Form().ConMeterAddr.Value()), "1");
    EXPECT_EQ(ToUtf8(other.Form().ConDataNub.Value()), "");
}

TEST_F(StartUp, InstrumentThatIsGoneLeavesTheFirst) {
    for (const Text& stored : {Text(u"100 1 16 6 9 1"), Text(u"100 1 16 6 -1 1"), Text(u"100 1 16 6 x 1")}) {
        Session other({line, dialogs, line, files, store, settings, program});
        settings.Values[u"SoftSeting"] = stored;
        Form_Activate(other.Form());
        EXPECT_EQ(other.Form().ConMeterName[0].Value(), other.Form().ConMeterName[0].At(0)) << ToUtf8(stored);
    }
}

TEST_F(StartUp, ProtocolThatIsGoneLeavesTheFirst) {
    for (const Text& stored : {Text(u"100 1 16 14 0 1"), Text(u"100 1 16 -1 0 1"), Text(u"100 1 16 x 0 1")}) {
        Session other({line, dialogs, line, files, store, settings, program});
        settings.Values[u"SoftSeting"] = stored;
        Form_Activate(other.Form());
        EXPECT_EQ(ToUtf8(other.Form().ConCommTypeList.Value()), "TQ仪表协议") << ToUtf8(stored);
    }
}

TEST_F(StartUp, AddressThatIsNoNumberIsPassedOver) {
    StartWith(u"100 abc 16 0 0 1");
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "abc");
    EXPECT_EQ(ToUtf8(form.ConDataNub.Value()), "16");
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

TEST_F(StartUp, GarbledSettingStartsAllTheSame) {
    StartWith(u"?");
    EXPECT_TRUE(form.Activated);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(Protocol(), "TQ仪表协议");
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

// --- The catalogue ---

TEST_F(StartUp, MissingServerFileFallsBackToTheLocalFileSilently) {
    StartWith(u"1000 1 16 0 0 0");
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库    本地数据库");
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

TEST_F(StartUp, ServerOutOfReachFallsBackToTheLocalFileSilently) {
    files.TextFiles[u"Setup.ini"] = kServerFile;
    StartWith(u"1000 1 16 0 0 0");
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库    本地数据库");
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

TEST_F(StartUp, ServerIsUsedInNetworkMode) {
    files.TextFiles[u"Setup.ini"] = kServerFile;
    store.Offer(kServer, FillWithShippedCatalogue);
    StartWith(u"1000 1 16 0 0 0");
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库");
    EXPECT_THAT(form.ConCommTypeList.Items(), SizeIs(14));
}

class StartWithoutACatalogue : public StartUp {
  protected:
    StartWithoutACatalogue() {
        store = AskedStore();
        line.Receives = [this] { PortReceives(form); };
        line.TimerTick = [this](int index) { TimerTicks(form, index); };
        for (Timer& timer : form.Timer1) line.Drive(timer);
    }

    void PressStartStop() {
        RunEvent(form, [this] { RunToolbarCommand(form, toolbar::kStartStop); });
    }
};

TEST_F(StartWithoutACatalogue, WindowOpensWithEmptyListsAndAWordToTheUser) {
    Start();
    EXPECT_TRUE(form.Activated);
    EXPECT_FALSE(store.IsOpen());
    EXPECT_THAT(form.ConCommTypeList.Items(), IsEmpty());
    EXPECT_THAT(form.ConMeterName[0].Items(), IsEmpty());
    EXPECT_THAT(dialogs.Shown, IsEmpty());
    EXPECT_EQ(form.StatusNote.Value().kind, Notice::Kind::NoCatalogue);
    EXPECT_EQ(ToUtf8(form.StatusNote.Value().detail), "folder/通讯数据.mdb");
    EXPECT_EQ(ToUtf8(form.Caption.Value()), "衡岫TQ系列仪联演示软件(TQ通讯协议) V 1.02.03");
}

TEST_F(StartWithoutACatalogue, ListsAndGridsAreEmpty) {
    Start();
    EXPECT_THAT(form.ConDataTypeList.Items(), IsEmpty());
    EXPECT_THAT(form.ConMeterType.Captions, IsEmpty());
    EXPECT_EQ(Protocol(), "");
    EXPECT_EQ(Instrument(), "");
    EXPECT_EQ(form.ProtocolCode, 0);
    const Grid& parameters = form.ParameterGrid();
    ASSERT_EQ(parameters.Cols(), 11);
    for (int row = 0; row < parameters.Rows(); ++row) {
        for (int col = 0; col < 11; ++col)
            ASSERT_EQ(ToUtf8(parameters.Cell(row, col)), "") << row << "," << col;
    }
    for (const std::size_t list : {1U, 2U, 3U}) EXPECT_EQ(form.MSHFlexGrid1[list].Rows(), 0) << list;
}

TEST_F(StartWithoutACatalogue, EverythingElseIsShown) {
    settings.Values[u"CommPort"] = u"19200,E,7,2 COM3";
    StartWith(u"250 17 8 4 2 1");
    EXPECT_EQ(Panel(2), "串口设置:  COM3  19200,E,7,2   状态:  关闭");
    EXPECT_EQ(Panel(3), "2024年05月06日  12:00:00");
    EXPECT_EQ(ToUtf8(form.ConDelayTime.Value()), "250");
    EXPECT_EQ(ToUtf8(form.ConMeterAddr.Value()), "17");
    EXPECT_EQ(ToUtf8(form.RichTextBox1.WholeText()), "用法");
    EXPECT_EQ(ToUtf8(form.RichTextBox2.WholeText()), "E-0001");
}

// Code 0 polls with the request of every unknown code. Its address is empty, which is no byte: what stands
// before it goes out, with a word to the user each time.
TEST_F(StartWithoutACatalogue, SessionSendsTheRequestOfAnUnknownCodeUpToItsAddress) {
    Start();
    PressStartStop();
    line.RunUntil(1800);
    ASSERT_THAT(line.Frames(), SizeIs(2));
    EXPECT_EQ(line.Frames()[0].time, 300);
    EXPECT_EQ(line.Frames()[1].time, 1800);
    for (const testing::SentFrame& frame : line.Frames())
        EXPECT_EQ(frame.bytes, "\xAA\xAA\xAA\xAA\xAA\xAA\xAA\x07\x02");
    EXPECT_EQ(ToUtf8(form.SendText), " AA AA AA AA AA AA AA 07 02  01 00 09 05");
    const std::string badFrame = "对不起，数据串中含有非法字符,无法完成数据转换！";
    EXPECT_THAT(dialogs.Texts(), ElementsAre(badFrame, badFrame));
}

TEST_F(StartWithoutACatalogue, SessionTakesNoReplyAndCountsNoFailure) {
    Start();
    line.Answer = [](const std::string&) {
        return std::vector<testing::Arrival>{{1, "@01RDC80064006E\r\n"}};
    };
    PressStartStop();
    line.RunUntil(2100);
    EXPECT_EQ(ToUtf8(form.ConCommMessage[2].Value()),
              "总计通讯: 1 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %");
    EXPECT_EQ(ToUtf8(form.ConCommString[1].WholeText()), "");
    EXPECT_EQ(form.ProtocolCode, 0);
}

TEST_F(StartWithoutACatalogue, SessionStopsAndClosesThePort) {
    Start();
    PressStartStop();
    line.RunUntil(300);
    EXPECT_TRUE(form.IsRunning());
    EXPECT_TRUE(line.PortOpen());
    PressStartStop();
    line.RunUntil(600);
    EXPECT_FALSE(form.IsRunning());
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(Panel(2), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
    EXPECT_THAT(line.Frames(), SizeIs(1));
}

TEST_F(StartWithoutACatalogue, OnlyWhatAsksTheCatalogueShowsItsError) {
    Start();
    const auto errors = [this](const std::function<void()>& event) {
        dialogs.Shown.clear();
        RunEvent(form, event);
        return dialogs.Shown.size();
    };
    for (const int tab : {0, 1, 4, 5}) EXPECT_EQ(errors([&] { form.SSTab2.Choose(tab); }), 0U) << tab;
    for (const int tab : {2, 3}) {
        EXPECT_EQ(errors([&] { form.SSTab2.Choose(tab); }), 1U) << tab;
        EXPECT_EQ(dialogs.Texts(), std::vector<std::string>{"数据库错误:\r\n\r\n数据库没有打开"});
    }
    EXPECT_EQ(errors([&] { form.ConMeterAddr.Set(u"7"); }), 0U);
    EXPECT_EQ(errors([&] { RunIfSet(form.ConCommTypeList.Click); }), 0U);
    EXPECT_EQ(errors([&] { RunToolbarCommand(form, toolbar::kSearch); }), 0U);
    EXPECT_TRUE(form.FindFrame.Visible());
}

TEST_F(StartWithoutACatalogue, LeavingStoresNoChoiceAndTheNextStartTakesTheFirst) {
    StartWith(u"250 17 8 4 2 1");
    RunEvent(form, [this] { Form_Unload(form); });
    EXPECT_TRUE(program.HasEnded);
    EXPECT_EQ(Setting(u"SoftSeting"), "250 17 8 -1 -1 1");
    store.Offer(kLocalFile, FillWithShippedCatalogue);
    Session next({line, dialogs, line, files, store, settings, program});
    RunEvent(next.Form(), [&] { Form_Activate(next.Form()); });
    EXPECT_EQ(ToUtf8(next.Form().ConCommTypeList.Value()), "TQ仪表协议");
    EXPECT_NE(ToUtf8(next.Form().ConMeterName[0].Value()), "");
}

TEST_F(StartUp, MissingHelpLeavesItsPaneEmpty) {
    files.TextFiles.clear();
    Start();
    EXPECT_EQ(ToUtf8(form.RichTextBox1.WholeText()), "");
    EXPECT_EQ(Protocol(), "TQ仪表协议");
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

// --- A newer program on the server ---

class NewerProgram : public StartUp {
  protected:
    NewerProgram() {
        files.TextFiles[u"Setup.ini"] = kServerFile;
        store.Offer(kServer, FillWithShippedCatalogue);
        program.FileTimes[u"folder/commtest"] = {2024, 5, 6, 12, 30, 10};
        program.FileTimes[kServersProgram] = {2024, 5, 6, 12, 31, 0};
        program.Programs = {u"folder/通讯更新.exe"};
        settings.Values[u"SoftSeting"] = u"1000 1 16 0 0 0";
    }
};

TEST_F(NewerProgram, IsTakenOnYesAndEndsThisOne) {
    Start();
    EXPECT_THAT(dialogs.Texts(), ElementsAre("本软件有一个最新的版本,您需要更新吗？"));
    EXPECT_THAT(program.Started, ElementsAre(u"folder/通讯更新.exe"));
    EXPECT_TRUE(program.HasEnded);
    EXPECT_FALSE(store.IsOpen());
    EXPECT_FALSE(form.Activated);
}

TEST_F(NewerProgram, IsLeftOnNo) {
    dialogs.Answers = {u"no"};
    Start();
    EXPECT_THAT(program.Started, IsEmpty());
    EXPECT_FALSE(program.HasEnded);
    EXPECT_TRUE(form.Activated);
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库");
}

TEST_F(NewerProgram, UpdaterThatCannotBeStartedSaysSoAndTheStartGoesOn) {
    program.Programs.clear();
    Start();
    ASSERT_THAT(dialogs.Shown, SizeIs(2));
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].text), "本软件有一个最新的版本,您需要更新吗？");
    EXPECT_EQ(dialogs.Shown[1].notice, Notice::Kind::NoUpdater);
    EXPECT_EQ(ToUtf8(dialogs.Shown[1].detail), "folder/通讯更新.exe");
    EXPECT_FALSE(program.HasEnded);
    EXPECT_TRUE(form.Activated);
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库");
}

TEST_F(NewerProgram, DifferenceOfSecondsDoesNotCount) {
    program.FileTimes[kServersProgram] = {2024, 5, 6, 12, 30, 59};
    Start();
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

TEST_F(NewerProgram, OlderProgramBringsNoQuestion) {
    program.FileTimes[kServersProgram] = {2023, 12, 31, 23, 59, 0};
    Start();
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

TEST_F(NewerProgram, MissingProgramOnTheServerBringsNoQuestion) {
    program.FileTimes.erase(kServersProgram);
    Start();
    EXPECT_THAT(dialogs.Shown, IsEmpty());
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库");
}

TEST_F(NewerProgram, IsNotLookedForInLocalMode) {
    settings.Values[u"SoftSeting"] = u"1000 1 16 0 0 1";
    Start();
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

// --- What is stored ---

TEST_F(StartUp, SettingsAreStoredAsTheyStand) {
    Start();
    form.ConCommTypeList.Set(u"ModBus-RTU协议");
    form.ConCommTypeList.Click();
    form.ConMeterName[0].Set(form.ConMeterName[0].At(1));
    form.ConDelayTime.Set(u"50");
    form.ConMeterAddr.Set(u"9");
    form.ConDataNub.Set(u"4");
    SaveSettings(form);
    EXPECT_EQ(Setting(u"SoftSeting"), "50 9 4 6 1 1");
}

TEST_F(StartUp, ModeIsStoredByThePanelsText) {
    struct Case {
        Text panel;
        std::string stored;
    };
    Start();
    for (const Case& mode :
         {Case{u"衡岫仪器公司    网络数据库", "0"}, Case{u"衡岫仪器公司    本地数据库", "1"},
          Case{u"衡岫仪器公司    网络数据库    本地数据库", "1"}}) {
        form.StatusBar1[0].Set(mode.panel);
        SaveSettings(form);
        EXPECT_EQ(Setting(u"SoftSeting"), "1000 1 16 0 0 " + mode.stored);
    }
}

TEST_F(StartUp, LeavingClosesTheErrorFileStoresAndEnds) {
    Start();
    form.ConDelayTime.Set(u"77");
    files.OpenErrorFile();
    RunEvent(form, [this] { RunToolbarCommand(form, toolbar::kLeave); });
    EXPECT_FALSE(files.ErrorFileIsOpen());
    EXPECT_EQ(Setting(u"SoftSeting"), "77 1 16 0 0 1");
    EXPECT_TRUE(program.HasEnded);
}

// --- The switch of the catalogue ---

TEST_F(StartUp, DoubleClickOnTheFirstPanelOffersTheOtherCatalogue) {
    Start();
    StatusBar1_PanelDblClick(form, 1);
    EXPECT_EQ(dialogs.Texts().back(),
              "本软件连接的数据库是 本地数据库 ,你需要将它改为 网络数据库 吗？修改将于下次运行时生效！");
    EXPECT_EQ(Setting(u"SoftSeting"), "1000 1 16 0 0 0");
    EXPECT_EQ(Panel(1), "衡岫仪器公司    网络数据库");
    StatusBar1_PanelDblClick(form, 1);
    EXPECT_EQ(dialogs.Texts().back(),
              "本软件连接的数据库是 网络数据库 ,你需要将它改为 本地数据库 吗？修改将于下次运行时生效！");
    EXPECT_EQ(Setting(u"SoftSeting"), "1000 1 16 0 0 1");
    EXPECT_EQ(Panel(1), "衡岫仪器公司    本地数据库");
}

TEST_F(StartUp, RefusedSwitchChangesNothing) {
    Start();
    dialogs.Answers = {u"no"};
    StatusBar1_PanelDblClick(form, 1);
    EXPECT_EQ(Setting(u"SoftSeting"), "1000 1 16 0 0 1");
    EXPECT_EQ(Panel(1), "衡岫仪器公司    本地数据库");
}

TEST_F(StartUp, OtherPanelsOfferNothing) {
    Start();
    StatusBar1_PanelDblClick(form, 2);
    StatusBar1_PanelDblClick(form, 3);
    EXPECT_THAT(dialogs.Shown, IsEmpty());
}

// --- The spin buttons of the interval ---

TEST_F(StartUp, StepOfTheIntervalFollowsItsDigits) {
    struct Case {
        Text delay;
        int step;
    };
    for (const Case& interval :
         {Case{u"5", 1}, Case{u"9", 1}, Case{u"10", 1}, Case{u"11", 10}, Case{u"99", 10}, Case{u"100", 10},
          Case{u"101", 100}, Case{u"999", 100}, Case{u"1000", 100}, Case{u"1001", 1000}, Case{u"9999", 1000},
          Case{u"10000", 1000}, Case{u"10001", 10000}, Case{u"60000", 10000}}) {
        form.ConDelayTime.Set(interval.delay);
        EXPECT_EQ(form.DelayStep, interval.step) << ToUtf8(interval.delay);
    }
}

}  // namespace
}  // namespace commtest
