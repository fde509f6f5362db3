#include "cli/instrument_choice.h"

#include "app/session.h"
#include "cli/catalogue_access.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

void ChooseProtocol(MainForm& form, const Text& name) {
    form.ConCommTypeList.Set(name);
    RunIfSet(form.ConCommTypeList.Click);
}

// A protocol that composes no address takes the one that another has left; here no other was in use.
void ComposeBorrowedAddress(MainForm& form) {
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.composeBorrowedAddress != nullptr) protocol.composeBorrowedAddress(form);
}

void RequireKnownProtocol(const MainForm& form) {
    if (form.ProtocolInUse().IsKnown()) return;
    throw Problem(ExitStatus::BadUsage,
                  u"本程序没有协议 \"%1\" 的通讯。可用协议请看 commtest-cli list protocols"_s.arg(
                      QString::fromStdU16String(form.ConCommTypeList.Value())));
}

// The field falls back where a protocol has no such address.
void RequireAddress(const MainForm& form, const LineOptions& options) {
    const Text& address = options.address;
    if (form.ConMeterAddr.Value() == address) return;
    throw Problem(ExitStatus::BadUsage,
                  u"地址 %1 超出协议 \"%2\" 的范围。请用 --%3 另给地址"_s.arg(
                      QString::fromStdU16String(address),
                      QString::fromStdU16String(form.ConCommTypeList.Value()), options.addressOption));
}

}  // namespace

void ChooseInstrument(MainForm& form, const LineOptions& options) {
    LoadCatalogueLists(form);
    const std::vector<Text>& protocols = form.ConCommTypeList.Items();
    const Text protocol =
        options.protocol.empty() && !protocols.empty() ? protocols.front() : options.protocol;
    RequireKnown(u"协议", protocol, protocols, u"list protocols");
    form.ConMeterAddr.Set(options.address);
    form.ConDelayTime.Set(options.interval);
    ChooseProtocol(form, protocol);
    RequireKnownProtocol(form);
    RequireAddress(form, options);
    ComposeBorrowedAddress(form);
    if (!options.instrument.empty()) {
        RequireKnown(u"仪表", options.instrument, form.InstrumentList().Items(), u"list instruments");
        form.InstrumentList().Set(options.instrument);
        RunIfSet(form.InstrumentList().Click);
    }
    if (options.showMode) form.ShowMode.Choose(*options.showMode);
}

}  // namespace commtest
