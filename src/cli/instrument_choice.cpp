#include "cli/instrument_choice.h"

#include "app/session.h"
#include "cli/catalogue_access.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPlainNativeCode = 11;

void ChooseProtocol(MainForm& form, const Text& name) {
    form.ConCommTypeList.Set(name);
    RunIfSet(form.ConCommTypeList.Click);
}

// A protocol that does not compose addresses takes the one that another protocol has left.
void LeaveAddressBehind(MainForm& form) {
    for (std::size_t row = 0; row < form.ProtocolCodeOfType.size(); ++row) {
        if (form.ProtocolCodeOfType[row] != kPlainNativeCode) continue;
        ChooseProtocol(form, form.ConCommTypeList.At(static_cast<int>(row)));
        return;
    }
}

void RequireBuilt(const MainForm& form) {
    if (form.ProtocolInUse().IsBuilt()) return;
    throw Problem(ExitStatus::BadUsage,
                  u"协议 \"%1\" 的通讯尚未提供。可用协议请看 commtest-cli list protocols"_s.arg(
                      QString::fromStdU16String(form.ConCommTypeList.Value())));
}

}  // namespace

void ChooseInstrument(MainForm& form, const LineOptions& options) {
    LoadCatalogueLists(form);
    RequireKnown(u"协议", options.protocol, form.ConCommTypeList.Items(), u"list protocols");
    form.ConMeterAddr.Set(options.address);
    form.ConDelayTime.Set(options.interval);
    ChooseProtocol(form, options.protocol);
    RequireBuilt(form);
    if (form.ProtocolInUse().composeAddress == nullptr) {
        LeaveAddressBehind(form);
        ChooseProtocol(form, options.protocol);
    }
    RequireKnown(u"仪表", options.instrument, form.InstrumentList().Items(), u"list instruments");
    form.InstrumentList().Set(options.instrument);
    RunIfSet(form.InstrumentList().Click);
    if (options.showMode) form.ShowMode.Choose(*options.showMode);
}

}  // namespace commtest
