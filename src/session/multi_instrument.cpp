#include "session/multi_instrument.h"

#include "host/dialogs.h"
#include "runtime/number.h"
#include "session/main_form.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

void AskForAddresses(MainForm& form) {
    form.MultiAddressCount = ToWhole16(
        form.outside.dialogs.AskText(u"仪表数量", u"请输入仪表的总台数", WholeText(form.MultiAddressCount)));
    form.MultiAddressList.clear();
    // Q52: before the first question.
    for (std::int16_t address = 1; address <= form.MultiAddressCount; address = Add16(address, 1)) {
        form.MultiAddressList.push_back(address);
    }
    int number = 0;
    for (std::int16_t& address : form.MultiAddressList) {
        const Text title = u"第 " + WholeText(++number) + u" 台仪表地址";
        address = ToWhole16(form.outside.dialogs.AskText(title, u"请输入仪表的地址", WholeText(address)));
    }
}

}  // namespace

void Check1_Click(MainForm& form) {
    if (!form.Check1.Value()) return;
    const bool wasRunning = form.IsRunning();
    if (wasRunning) StartOrStop(form, {StopCause::Questions});
    AskForAddresses(form);
    if (wasRunning) StartOrStop(form, {StopCause::Questions});
}

void WriteType_Click(MainForm& form) {
    if (form.switches.multiRegisterWrite) form.SSTab2.Choose(0);
}

}  // namespace commtest
