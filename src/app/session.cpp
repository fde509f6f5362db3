#include "app/session.h"

#include "app/protocol_table.h"
#include "app/tool_window.h"
#include "catalogue/catalogue_lists.h"
#include "catalogue/instrument_selection.h"
#include "commands/startup.h"
#include "host/clock.h"
#include "host/dialogs.h"
#include "host/program_process.h"
#include "replay/capture.h"
#include "replay/replay_script.h"
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
    form.InstrumentList().Click = [&form] { ConMeterName_Click(form); };
    form.SSTab2.Click = [&form](int) { SSTab2_Click(form); };
    form.WriteType.Click = [&form](int) { WriteType_Click(form); };
    form.Check1.Click = [&form] { Check1_Click(form); };
    form.TimeSetup.Click = [&form] { TimeSetup_Click(form); };
    form.ConSaveData.Click = [&form] { ConSaveData_Click(form); };
    form.ConMyCommDriver.Click = [&form] { ConMyCommDriver_Click(form); };
}

}  // namespace

Session::Session(const Outside& outside, const Face& face)
    : tools_(outside.dialogs, outside.clock, outside.program),
      form_(outside, Protocols(), companions_, face) {
    WireHandlers(form_);
    form_.ToolWindowWanted = [this] { ShowToolWindow(tools_, form_.outside.store); };
}

void LoadCatalogueLists(MainForm& form) {
    LoadProtocolList(form);
    LoadDataTypes(form);
    LoadGridLayout(form);
}

}  // namespace commtest
