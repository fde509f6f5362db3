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

void RequireThisProtocol(const MainForm& form, const Text& instrument) {
    Store& store = form.outside.store;
    for (const Text& protocol : ProtocolNames(store)) {
        const std::vector<Text> names = InstrumentNames(store, protocol);
        if (std::find(names.begin(), names.end(), instrument) == names.end()) continue;
        throw Problem(ExitStatus::BadUsage,
                      u"仪表 \"%1\" 属于协议 \"%2\"，不属于协议 \"%3\"。请用 --protocol 给出它的协议"_s.arg(
                          QString::fromStdU16String(instrument), QString::fromStdU16String(protocol),
                          QString::fromStdU16String(form.ConCommTypeList.Value())));
    }
}

// The instrument of that name, or the only one whose name has it as a part.
Text InstrumentMeant(const MainForm& form, const Text& word) {
    const std::vector<Text>& known = form.InstrumentList().Items();
    if (std::find(known.begin(), known.end(), word) != known.end()) return word;
    RequireThisProtocol(form, word);
    std::vector<Text> fitting;
    for (const Text& name : known) {
        if (Contains(name, word)) fitting.push_back(name);
    }
    if (fitting.size() == 1) return fitting.front();
    if (fitting.empty()) RequireKnown(u"仪表", word, known, u"list instruments");
    QStringList names;
    for (const Text& name : fitting) names += QString::fromStdU16String(name);
    throw Problem(ExitStatus::BadUsage,
                  u"名称中有 \"%1\" 的仪表有 %2 种: %3。请写全"_s.arg(QString::fromStdU16String(word))
                      .arg(fitting.size())
                      .arg(names.join(u"、"_s)));
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
        form.InstrumentList().Set(InstrumentMeant(form, options.instrument));
        RunIfSet(form.InstrumentList().Click);
    }
    if (options.showMode) form.ShowMode.Choose(*options.showMode);
}

}  // namespace commtest
