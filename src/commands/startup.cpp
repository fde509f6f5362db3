#include "commands/startup.h"

#include <cmath>

#include "catalogue/catalogue_connection.h"
#include "catalogue/catalogue_lists.h"
#include "catalogue/instrument_selection.h"
#include "host/clock.h"
#include "host/dialogs.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host/program_process.h"
#include "host/settings_store.h"
#include "host/store.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/address.h"
#include "session/events.h"
#include "session/main_form.h"
#include "session/port_settings.h"
#include "session/records.h"

namespace commtest {

namespace {

constexpr int kLocalMode = 1;
constexpr TextView kLocalWord = u"本地数据库";
constexpr TextView kNetworkWord = u"网络数据库";

// --- The settings store ---

struct Setting {
    TextView key;
    TextView byDefault;
};

constexpr Setting kShowType = {u"ShowType", u"1"};
constexpr Setting kCommPort = {u"CommPort", u"9600,N,8,1 COM1"};
constexpr Setting kSoftSetting = {u"SoftSeting", u"1000 1 16 0 0 1"};  // Q180: spelled so

// A missing setting is written with its default.
Text Stored(MainForm& form, const Setting& setting) {
    const Text key(setting.key);
    if (const auto stored = form.outside.settings.Read(key)) return *stored;
    form.outside.settings.Save(key, Text(setting.byDefault));
    return Text(setting.byDefault);
}

// What stands before the first blank; both are taken off `rest`. Two blanks in a row have an empty field
// between.
Text TakeField(Text& rest) {
    const Text field = Before(rest, u' ');
    rest = Behind(rest, u' ');
    return field;
}

// The numbers of SoftSeting; one that cannot be read is 0.
struct SoftSetting {
    Text delay;
    Text address;
    Text count;
    int protocol = 0;
    int instrument = 0;
    int mode = 0;
};

SoftSetting StoredSoftSetting(MainForm& form) {
    Text rest = Stored(form, kSoftSetting);
    SoftSetting soft;
    PassOverErrors([&] { soft.mode = ToWhole16(Right(rest, 1)); },  //
                   [&] { soft.delay = TakeField(rest); },           //
                   [&] { soft.address = TakeField(rest); },         //
                   [&] { soft.count = TakeField(rest); },           //
                   [&] { soft.protocol = ToWhole16(TakeField(rest)); },
                   [&] { soft.instrument = ToWhole16(TakeField(rest)); });
    return soft;
}

// --- Steps of the start ---

// The layouts come round every third press.
void PressShowCommand(MainForm& form, double times) {
    const double presses = times > 3 ? 3 + std::fmod(times, 3) : times;
    for (int press = 1; press <= presses; ++press) ConShowCommand_Click(form);
}

void OpenCatalogueOrLocal(MainForm& form, int mode) {
    OpenCatalogue(form, mode);
    if (!form.outside.store.IsOpen()) OpenCatalogue(form, kLocalMode);  // Q182: without a word
    if (!form.outside.store.IsOpen()) {
        form.StatusNote.Set({Notice::Kind::NoCatalogue, form.outside.files.PathOf(Text(kCatalogueFileName))});
    }
}

// The protocol of the last session; one that is gone leaves the first.
void ChooseStoredProtocol(MainForm& form, int protocol) {
    const ListControl& protocols = form.ConCommTypeList;
    const bool isKnown = protocol >= 0 && protocol < static_cast<int>(protocols.Items().size());
    form.ConCommTypeList.Set(protocols.At(isKnown ? protocol : 0));
}

// The instrument of the last session; one that is gone leaves the one chosen.
void ChooseStoredInstrument(MainForm& form, int instrument) {
    ListControl& names = form.InstrumentList();
    PassOverErrors([&] { names.Set(names.At(instrument)); }, [&] { RunIfSet(names.Click); });
}

Text TitleOf(const MainForm& form) {
    return Text(form.texts.beforeVersion) + VersionText(form.outside.program.Version());
}

void ShowHelp(MainForm& form) {
    form.RichTextBox1.Replace(form.outside.files.ReadWhole(Text(kHelpFileName)));
}

void RefuseSecondInstance(MainForm& form) {
    if (!form.outside.program.PrevInstance()) return;
    form.outside.dialogs.ShowMessage(u"对不起，本软件已经有一个版本在运行了，请按确定键退出！", {});
    throw ProgramEnds();
}

}  // namespace

void Form_Activate(MainForm& form) {
    if (form.Activated) return;
    RefuseSecondInstance(form);
    const SameAnswersScope answers(form.outside.store);
    // Q183: what fails is passed over.
    PassOverErrors([&] { LoadSettings(form); },     //
                   [&] { ShowPortStatus(form); },   //
                   [&] { form.SSTab2.Choose(0); },  //
                   [&] { form.CommandCode = command::kReadDynamicTurn; },
                   [&] { ClearFileCommand_Click(form, 1); },  //
                   [&] { LoadDataTypes(form); },              //
                   [&] { ConMeterName_Click(form); },         //
                   [&] { LoadGridLayout(form); },             //
                   [&] { form.Caption.Set(TitleOf(form)); },  //
                   [&] { ShowHelp(form); },                   //
                   [&] { form.ConSettingComm.Set(form.PortName().Value()); },
                   [&] { form.StatusBar1[2].Set(form.texts.clockPanel(form.outside.clock.Now())); },
                   [&] { ConCommSetting_LostFocus(form); },  //
                   [&] { ConCommTypeList_Click(form); },
                   // That click has chosen the protocol's first instrument.
                   [&] { ChooseStoredInstrument(form, StoredSoftSetting(form).instrument); });
    form.Activated = true;
}

void LoadSettings(MainForm& form) {
    SoftSetting soft;
    PassOverErrors([&] { PressShowCommand(form, std::floor(ToNumber(Stored(form, kShowType)))); },
                   [&] { ShowStoredPortSettings(form, Stored(form, kCommPort)); },
                   [&] { soft = StoredSoftSetting(form); },                                                 //
                   [&] { form.ConDelayTime.Set(soft.delay); },                                              //
                   [&] { form.ConMeterAddr.Set(soft.address); },                                            //
                   [&] { form.ConDataNub.Set(soft.count); },                                                //
                   [&] { OpenCatalogueOrLocal(form, soft.mode); },                                          //
                   [&] { LoadProtocolList(form); },                                                         //
                   [&] { ChooseStoredProtocol(form, soft.protocol); }, [&] { LoadInstrumentNames(form); },  //
                   [&] { ConMeterAddr_Change(form); },                                                      //
                   [&] { ChooseStoredInstrument(form, soft.instrument); }, [&] { ChangeTime_Change(form); });
}

void OpenCatalogueBehindStart(MainForm& form) {
    form.outside.store.Open(LocalCatalogue(form.outside.files));
    const SameAnswersScope answers(form.outside.store);
    const SoftSetting soft = StoredSoftSetting(form);
    PassOverErrors([&] { LoadProtocolList(form); }, [&] { ChooseStoredProtocol(form, soft.protocol); },
                   [&] { LoadInstrumentNames(form); }, [&] { ConMeterAddr_Change(form); },
                   [&] { LoadDataTypes(form); }, [&] { LoadGridLayout(form); }, [&] { ShowHelp(form); },
                   [&] { ConCommTypeList_Click(form); },
                   [&] { ChooseStoredInstrument(form, soft.instrument); });
}

void SaveSettings(MainForm& form) {
    const ListControl& names = form.InstrumentList();
    const bool isLocal = Contains(form.StatusBar1[0].Value(), kLocalWord);  // Q181
    Text soft;
    for (const Text& field : {form.ConDelayTime.Value(), form.ConMeterAddr.Value(), form.ConDataNub.Value(),
                              WholeText(form.ConCommTypeList.IndexOf(form.ConCommTypeList.Value())),
                              WholeText(names.IndexOf(names.Value()))})
        soft += field + u" ";
    form.outside.settings.Save(Text(kSoftSetting.key), soft + (isLocal ? u"1" : u"0"));
}

void StatusBar1_PanelDblClick(MainForm& form, int panel) {
    if (panel != 1 || !form.switches.catalogueModeSwitch) return;
    Text soft = Stored(form, kSoftSetting);
    const bool isLocal = soft.ends_with(u'1');
    const Text present(isLocal ? kLocalWord : kNetworkWord);
    const Text other(isLocal ? kNetworkWord : kLocalWord);
    const bool agreed = form.outside.dialogs.AskYesNo(
        u"本软件连接的数据库是 " + present + u" ,你需要将它改为 " + other + u" 吗？修改将于下次运行时生效！");
    if (!agreed) return;
    soft = Left(soft, Len(soft) - 1) + (isLocal ? u"0" : u"1");
    form.outside.settings.Save(Text(kSoftSetting.key), soft);
    form.StatusBar1[0].Set(u"衡岫仪器公司    " + other);  // Q184: at once
}

void ChangeTime_Change(MainForm& form) {
    struct Step {
        int forDigits;
        Text smallest;  // of that many digits
    };
    static const std::array<Step, 5> kSteps = {
        {{1, u""}, {10, u"10"}, {100, u"100"}, {1000, u"1000"}, {10000, u"10000"}}};
    const Text& delay = form.ConDelayTime.Value();
    if (delay.empty() || delay.size() > kSteps.size()) return;
    const Step& step = kSteps[delay.size() - 1];
    form.DelayStep = delay == step.smallest ? step.forDigits / 10 : step.forDigits;
}

void Form_Unload(MainForm& form) {
    form.outside.files.CloseErrorFile();
    SaveSettings(form);
    throw ProgramEnds();
}

}  // namespace commtest
