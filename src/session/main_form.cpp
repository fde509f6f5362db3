#include "session/main_form.h"

namespace commtest {

namespace {

template <std::size_t N>
void Offer(ListControl& list, const std::array<TextView, N>& items) {
    for (TextView item : items) list.Add(Text(item));
}

}  // namespace

MainForm::MainForm(const Outside& theOutside, const ProtocolTable& protocolTable,
                   Companions& companionRoutines, const Face& face)
    : outside(theOutside),
      MSComm1(theOutside.port),
      protocols(protocolTable),
      companions(companionRoutines),
      texts(face.texts),
      settingsTable(face.settingsTable) {
    switches = face.switches;
    InputText.SetVisible(false);
    FindFrame.SetVisible(false);
    ConCpuDataShow.SetVisible(false);
    ConCommString[0].SetVisible(false);
    StatusBar1[0].Set(u"衡岫仪器公司");
    StatusBar1[1].Set(u"    欢迎使用本软件");
    for (ListControl* ports : {&PortName(), &ConSettingComm})
        Offer<4>(*ports, {u"COM1", u"COM2", u"COM3", u"COM4"});
    Offer<8>(BaudRate(),
             {u"1200 ", u"2400 ", u"4800 ", u"9600 ", u"19200 ", u"28800 ", u"38400 ", u"57600 "});
    Offer<4>(DataBits(), {u"5", u"6", u"7", u"8"});
    Offer<3>(Parity(), {u"无校验", u"奇校验", u"偶校验"});
    Offer<3>(StopBits(), {u"1", u"1.5", u"2"});
    PortName().Set(u"COM1");
    BaudRate().Set(u"9600");
    DataBits().Set(u"8");
    Parity().Set(u"无校验");
    StopBits().Set(u"1");
    ParameterGrid().SetSize(15, 11);
}

void MainForm::NoteStop(Stop stop) {
    stop.exchange = SendCount;
    lastStop_ = std::move(stop);
}

}  // namespace commtest
