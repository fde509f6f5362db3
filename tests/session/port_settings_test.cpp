#include "session/port_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FormBench;

class PortSettings : public ::testing::Test {
  protected:
    PortSettings() { Choose(u"COM1", u"9600", u"8", u"无校验", u"1"); }

    void Choose(const Text& port, const Text& baud, const Text& dataBits, const Text& parity,
                const Text& stopBits) {
        const Text fields[] = {port, baud, dataBits, parity, stopBits};
        for (std::size_t i = 0; i < 5; ++i) form.ConCommSetting[i].Set(fields[i]);
    }

    std::string Status() const { return ToUtf8(form.StatusBar1[1].Value()); }

    FormBench bench;
    MainForm& form = bench.form;
};

struct Parity {
    Text name;
    std::string settings;
};

TEST_F(PortSettings, FieldsAreComposedByParity) {
    for (const Parity& parity : {Parity{u"无校验", "19200,N,7,2"}, Parity{u"奇校验", "19200,O,7,2"},
                                 Parity{u"偶校验", "19200,E,7,2"}, Parity{u"标记", ""}, Parity{u"", ""}}) {
        Choose(u"COM1", u"19200 ", u" 7", parity.name, u" 2 ");
        ConCommSetting_LostFocus(form);
        EXPECT_EQ(ToUtf8(bench.line.Settings()), parity.settings);
    }
}

TEST_F(PortSettings, HalfStopBitsAreTakenAsTheyStand) {
    form.ConCommSetting[4].Set(u"1.5");
    ConCommSetting_LostFocus(form);
    EXPECT_EQ(ToUtf8(bench.line.Settings()), "9600,N,8,1.5");
}

struct PortName {
    Text text;
    int number;
};

TEST_F(PortSettings, NumberOfThePortStandsFromTheFourthCharacter) {
    for (const PortName& name :
         {PortName{u"COM1", 1}, PortName{u"COM12", 12}, PortName{u"COM 7 ", 7}, PortName{u"com3", 3}}) {
        form.ConCommSetting[0].Set(name.text);
        ConCommSetting_LostFocus(form);
        EXPECT_EQ(bench.line.CommPort(), name.number) << ToUtf8(name.text);
    }
}

TEST_F(PortSettings, ChoiceIsRememberedWithThePortInCapitals) {
    Choose(u"com2 ", u"4800", u"8", u"偶校验", u"1");
    ConCommSetting_LostFocus(form);
    EXPECT_EQ(ToUtf8(bench.settings.Values.at(u"CommPort")), "4800,E,8,1 COM2");
}

TEST_F(PortSettings, UnknownParityIsRememberedAsThePortAlone) {
    form.ConCommSetting[3].Set(u"标记");
    ConCommSetting_LostFocus(form);
    EXPECT_EQ(ToUtf8(bench.settings.Values.at(u"CommPort")), " COM1");
}

TEST_F(PortSettings, StatusNamesPortSettingsInCapitalsAndState) {
    bench.line.SetCommPort(12);
    bench.line.SetSettings(u"1200,e,7,1");
    ShowPortStatus(form);
    EXPECT_EQ(Status(), "串口设置:  COM12  1200,E,7,1   状态:  关闭");
    bench.line.SetPortOpen(true);
    ShowPortStatus(form);
    EXPECT_EQ(Status(), "串口设置:  COM12  1200,E,7,1   状态:  开启");
}

TEST_F(PortSettings, StatusIsShownOnceTheFieldsAreApplied) {
    form.ConCommSetting[1].Set(u"2400");
    ConCommSetting_LostFocus(form);
    EXPECT_EQ(Status(), "串口设置:  COM1  2400,N,8,1   状态:  关闭");
}

TEST_F(PortSettings, PortNameWithoutANumberRaisesError13AndLeavesThePortClosed) {
    bench.line.SetPortOpen(true);
    form.ConCommSetting[0].Set(u"COM");
    EXPECT_EQ(ErrorOf([&] { ConCommSetting_LostFocus(form); }), 13);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_FALSE(bench.settings.Values.contains(u"CommPort"));
}

// A port that notes what is done to it.
class NotingPort : public SerialPort {
  public:
    std::vector<std::string> Steps;
    bool Occupied = false;
    bool Open = false;

    std::int16_t CommPort() const override { return 1; }
    void SetCommPort(std::int16_t number) override { Steps.push_back("port " + std::to_string(number)); }
    Text Settings() const override { return u"9600,n,8,1"; }
    void SetSettings(Text settings) override { Steps.push_back(ToUtf8(settings)); }
    bool PortOpen() const override { return Open; }
    void SetPortOpen(bool open) override {
        Steps.push_back(open ? "open" : "close");
        Open = open && !Occupied;
    }
    void Output(const std::string&) override {}
    std::string Input() override { return {}; }
    Text LastProblem() const override { return {}; }
    std::vector<PortDevice> Devices() const override { return {}; }
    Text Device() const override { return {}; }
    void NameDevice(int, Text) override {}
};

class PortThatNotes : public ::testing::Test {
  protected:
    FormBench bench;
    NotingPort port;
    MainForm form{{port, bench.dialogs, bench.line, bench.files, *bench.store, bench.settings, bench.program},
                  bench.protocols,
                  bench.companions};
};

TEST_F(PortThatNotes, OpenPortIsClosedForTheChangeAndOpenedAgain) {
    port.Open = true;
    ConCommSetting_LostFocus(form);
    EXPECT_THAT(port.Steps, ElementsAre("close", "9600,N,8,1", "port 1", "open"));
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  开启");
}

TEST_F(PortThatNotes, ClosedPortStaysClosed) {
    ConCommSetting_LostFocus(form);
    EXPECT_THAT(port.Steps, ElementsAre("9600,N,8,1", "port 1"));
}

TEST_F(PortThatNotes, PortThatCannotBeOpenedAgainIsShownAsClosed) {
    port.Open = true;
    port.Occupied = true;
    ConCommSetting_LostFocus(form);
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
}

TEST_F(PortThatNotes, StoredSettingsAreAppliedToAnOpenPortInTheSameWay) {
    port.Open = true;
    ShowStoredPortSettings(form, u"4800,O,7,2 COM3");
    EXPECT_THAT(port.Steps, ElementsAre("close", "4800,O,7,2", "port 3", "open"));
}

struct Stored {
    Text text;
    std::vector<std::string> fields;
};

TEST_F(PortSettings, StoredSettingsFillTheFiveFields) {
    const Stored rows[] = {{u"9600,N,8,1 COM1", {"COM1", "9600", "8", "无校验", "1"}},
                           {u"4800,O,7,1.5 COM12", {"COM12", "4800", "7", "奇校验", "1.5"}},
                           {u" 1200,E,7,2  COM2 ", {"COM2", "1200", "7", "偶校验", "2"}}};
    for (const Stored& row : rows) {
        ShowStoredPortSettings(form, row.text);
        std::vector<std::string> fields;
        for (const ListControl& field : form.ConCommSetting) fields.push_back(ToUtf8(field.Value()));
        EXPECT_EQ(fields, row.fields);
    }
    EXPECT_EQ(ToUtf8(bench.line.Settings()), "1200,E,7,2");
    EXPECT_EQ(bench.line.CommPort(), 2);
}

TEST_F(PortSettings, StoredPortWithoutANumberLeavesTheNumberOfThePortAndFillsTheFields) {
    const std::pair<Text, std::string> rows[] = {
        {u"4800,E,7,2 port", "port"}, {u"4800,E,7,2 COMX", "COMX"}, {u"4800,E,7,2", ""}};
    for (const auto& [stored, portField] : rows) {
        bench.line.SetCommPort(6);
        Choose(u"COM6", u"9600", u"8", u"无校验", u"1");
        ShowStoredPortSettings(form, stored);
        EXPECT_EQ(bench.line.CommPort(), 6);
        EXPECT_EQ(ToUtf8(bench.line.Settings()), "4800,E,7,2");
        EXPECT_EQ(ToUtf8(form.ConCommSetting[0].Value()), portField);
        EXPECT_EQ(ToUtf8(form.ConCommSetting[3].Value()), "偶校验");
        EXPECT_EQ(ToUtf8(form.ConCommSetting[4].Value()), "2");
    }
}

TEST_F(PortThatNotes, OpenPortIsOpenAgainBehindAStoredNameWithoutANumber) {
    port.Open = true;
    ShowStoredPortSettings(form, u"4800,O,7,2 port");
    EXPECT_THAT(port.Steps, ElementsAre("close", "4800,O,7,2", "open"));
}

// --- The ports on offer ---

TEST_F(PortSettings, FirstFourPortsAreOfferedAlsoByAMachineWithoutAny) {
    OfferPorts(form);
    EXPECT_THAT(form.ConCommSetting[0].Items(), ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4"));
    EXPECT_THAT(form.ConSettingComm.Items(), ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4"));
}

TEST_F(PortSettings, FurtherPortsOfTheMachineFollowInOrderOfTheirNumbers) {
    bench.line.Ports = {{12, u"/dev/c"}, {5, u"/dev/b"}, {2, u"/dev/a"}};
    OfferPorts(form);
    EXPECT_THAT(form.ConCommSetting[0].Items(),
                ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4", u"COM5", u"COM12"));
    EXPECT_THAT(form.ConSettingComm.Items(),
                ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4", u"COM5", u"COM12"));
}

TEST_F(PortSettings, PortThatIsGoneIsNoLongerOfferedAndTheFieldsKeepTheirTexts) {
    bench.line.Ports = {{7, u"/dev/a"}};
    OfferPorts(form);
    form.ConCommSetting[0].Set(u"COM7");
    form.ConSettingComm.Set(u"COM9");
    bench.line.Ports.clear();
    OfferPorts(form);
    EXPECT_THAT(form.ConCommSetting[0].Items(), ElementsAre(u"COM1", u"COM2", u"COM3", u"COM4"));
    EXPECT_EQ(ToUtf8(form.ConCommSetting[0].Value()), "COM7");
    EXPECT_EQ(ToUtf8(form.ConSettingComm.Value()), "COM9");
}

TEST_F(PortSettings, FieldsOfferTheUsualChoices) {
    const FormBench fresh;
    EXPECT_THAT(fresh.form.ConCommSetting[3].Items(), ElementsAre(u"无校验", u"奇校验", u"偶校验"));
    EXPECT_THAT(fresh.form.ConCommSetting[4].Items(), ElementsAre(u"1", u"1.5", u"2"));
    EXPECT_EQ(ToUtf8(fresh.form.ConCommSetting[1].At(0)), "1200 ");
}

}  // namespace
}  // namespace commtest
