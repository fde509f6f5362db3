#include "session/port_settings.h"

#include <set>

#include "host/serial_port.h"
#include "host/settings_store.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

namespace {

struct Parity {
    TextView name;
    TextView letter;
};

constexpr std::array<Parity, 3> kParities = {{{u"无校验", u"N"}, {u"奇校验", u"O"}, {u"偶校验", u"E"}}};

Text ComposedSettings(const MainForm& form) {
    const auto field = [&form](std::size_t index) { return Trim(form.ConCommSetting[index].Value()); };
    for (const Parity& parity : kParities) {
        if (form.Parity().Value() != parity.name) continue;
        return field(1) + u"," + Text(parity.letter) + u"," + field(2) + u"," + field(4);
    }
    return {};  // Q69: shown as not taken
}

// Changes a port that may be open: closed first, open again behind the change.
template <typename Change>
void ChangeClosedPort(SerialPort& port, Change&& change) {
    const bool wasOpen = port.PortOpen();
    if (wasOpen) port.SetPortOpen(false);
    change();
    if (wasOpen) port.SetPortOpen(true);
}

std::int16_t PortNumber(TextView portName) { return ToWhole16(Trim(Mid(portName, 4))); }

}  // namespace

void ConCommSetting_LostFocus(MainForm& form) {
    const Text composed = ComposedSettings(form);
    ChangeClosedPort(form.MSComm1, [&] {
        form.MSComm1.SetSettings(composed);
        form.MSComm1.SetCommPort(PortNumber(form.PortName().Value()));
    });
    ShowPortStatus(form);
    form.outside.settings.Save(u"CommPort", composed + u" " + UCase(Trim(form.PortName().Value())));
}

void ShowStoredPortSettings(MainForm& form, TextView stored) {
    const Text trimmed = Trim(stored);
    const Text settings = Before(trimmed, u' ');
    const Text portName = Trim(Behind(trimmed, u' '));
    ChangeClosedPort(form.MSComm1, [&] {
        form.MSComm1.SetSettings(settings);
        PassOverError([&] { form.MSComm1.SetCommPort(PortNumber(portName)); });
    });
    const Text behindBaud = Behind(settings, u',');
    const Text behindParity = Behind(behindBaud, u',');
    for (const Parity& parity : kParities) {
        if (Left(behindBaud, 1) == parity.letter) form.Parity().Set(Text(parity.name));
    }
    form.BaudRate().Set(Before(settings, u','));
    form.DataBits().Set(Before(behindParity, u','));
    form.StopBits().Set(Behind(behindParity, u','));
    form.PortName().Set(portName);
}

void OfferPorts(MainForm& form) {
    std::set<int> numbers = {1, 2, 3, 4};
    for (const PortDevice& device : form.MSComm1.Devices()) numbers.insert(device.number);
    for (ListControl* list : {&form.PortName(), &form.ConSettingComm}) {
        list->Clear();
        for (int number : numbers) list->Add(u"COM" + WholeText(number));
    }
}

void ShowPortStatus(MainForm& form) {
    const Texts& texts = form.texts;
    Text status(texts.beforePort);
    status += WholeText(form.MSComm1.CommPort());
    status += u"  ";
    status += UCase(form.MSComm1.Settings());
    status += texts.beforePortState;
    status += form.MSComm1.PortOpen() ? texts.portOpen : texts.portClosed;
    form.StatusBar1[1].Set(status);
}

}  // namespace commtest
