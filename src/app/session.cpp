#include "app/session.h"

#include "app/protocol_table.h"
#include "app/startup.h"
#include "catalogue/catalogue_lists.h"
#include "catalogue/instrument_selection.h"
#include "session/address.h"
#include "session/interval_timer.h"
#include "session/multi_instrument.h"

namespace commtest {

namespace {

void WireHandlers(MainForm& form) {
    form.ConDelayTime.Change = [&form] { ChangeTime_Change(form); };
    form.ConMeterAddr.Change = [&form] { ConMeterAddr_Change(form); };
    form.ConCommTypeList.Click = [&form] { ConCommTypeList_Click(form); };
    form.ConMeterType.Click = [&form](int index) { ConMeterType_Click(form, index); };
    form.ConMeterName[0].Click = [&form] { ConMeterName_Click(form); };
    form.SSTab2.Click = [&form](int) { SSTab2_Click(form); };
    form.WriteType.Click = [&form](int) { WriteType_Click(form); };
    form.Check1.Click = [&form] { Check1_Click(form); };
    form.TimeSetup.Click = [&form] { TimeSetup_Click(form); };
    form.ConSaveData.Click = [&form] { form.companions.SwitchCapture(form); };
    form.ConMyCommDriver.Click = [&form] { form.companions.SwitchReplay(form); };
}

}  // namespace

Session::Session(const Outside& outside)
    : tools_(outside.dialogs, outside.clock, outside.program),
      companions_(tools_),
      form_(outside, Protocols(), companions_) {
    WireHandlers(form_);
}

void LoadCatalogueLists(MainForm& form) {
    LoadProtocolList(form);
    LoadDataTypes(form);
    LoadGridLayout(form);
}

}  // namespace commtest
