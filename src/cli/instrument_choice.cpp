#include "cli/instrument_choice.h"

#include <algorithm>

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

bool Fits(const Text& name, const Text& word, bool isPart) {
    return isPart ? Contains(name, word) : name == word;
}

void RequireThisProtocol(const MainForm& form, const Text& word, bool isPart) {
    Store& store = form.outside.store;
    for (const Text& protocol : ProtocolNames(store)) {
        const std::vector<Text> names = InstrumentNames(store, protocol);
        const auto name = std::find_if(names.begin(), names.end(),
                                       [&](const Text& each) { return Fits(each, word, isPart); });
        if (name == names.end()) continue;
        throw Problem(ExitStatus::BadUsage,
                      u"仪表 \"%1\" 属于协议 \"%2\"，不属于协议 \"%3\"。请用 --protocol 给出它的协议"_s.arg(
                          QString::fromStdU16String(*name), QString::fromStdU16String(protocol),
                          QString::fromStdU16String(form.ConCommTypeList.Value())));
    }
}

Text MeantHere(const MainForm& form, const Text& word) {
    const std::vector<Text>& known = form.InstrumentList().Items();
    const auto isHere = [&](bool isPart) {
        return std::any_of(known.begin(), known.end(),
                           [&](const Text& name) { return Fits(name, word, isPart); });
    };
    for (const bool isPart : {false, true}) {
        if (isHere(isPart)) break;
        RequireThisProtocol(form, word, isPart);
    }
    return InstrumentMeant(word, known);
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
        form.InstrumentList().Set(MeantHere(form, options.instrument));
        RunIfSet(form.InstrumentList().Click);
    }
    if (options.showMode) form.ShowMode.Choose(*options.showMode);
}

}  // namespace commtest
