#include "support/bench_session.h"

#include "app/protocol_table.h"
#include "catalogue/instrument_catalogue.h"
#include "commands/list_clicks.h"
#include "commands/toolbar_commands.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "session/events.h"
#include "session/grid_editing.h"
#include "session/grid_rows.h"

namespace commtest::testing {

namespace {

std::unique_ptr<Store> WithProtocols(std::unique_ptr<Store> store) {
    int order = 0;
    for (const Protocol& protocol : Protocols().rows) {
        store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度"},
                      {u"协议规定", WholeText(++order), Text(protocol.name), WholeText(protocol.code)});
    }
    return store;
}

}  // namespace

BenchSession::BenchSession(const Face& face, std::unique_ptr<Store> catalogue)
    : store(WithProtocols(std::move(catalogue))),
      session_({line, dialogs, line, files, storeCalls, settings, program}, face) {
    MainForm& form = Form();
    dialogs.Time = [this] { return line.Time(); };
    line.Receives = [&form] { PortReceives(form); };
    line.TimerTick = [&form](int index) { TimerTicks(form, index); };
    for (Timer& timer : form.Timer1) line.Drive(timer);
    LoadCatalogueLists(form);
}

void BenchSession::Add(const Text& name, const Text& protocol, const Text& code,
                       const std::vector<TestParameter>& parameters) {
    InstrumentCatalogue catalogue(*store);
    InstrumentRecord instrument;
    instrument.id = static_cast<int>(catalogue.AllInstruments().rows.size()) + 1;
    instrument.name = name;
    instrument.protocol = protocol;
    instrument.code = code;
    instrument.classId = u"1";
    catalogue.AddInstrument(instrument);
    int id = static_cast<int>(catalogue.AllParameters().rows.size());
    for (const TestParameter& parameter : parameters) {
        ParameterRecord record;
        record.id = ++id;
        record.instrumentId = instrument.id;
        record.name = parameter.name;
        record.address = parameter.address;
        record.length = parameter.length;
        record.attribute = parameter.attribute;
        record.decimalPoint = parameter.decimals;
        catalogue.AddParameter(record);
    }
}

void BenchSession::Choose(const Text& protocol, const Text& instrument) {
    Happen(*this, [&](MainForm& form) {
        form.ConCommTypeList.Set(protocol);
        RunIfSet(form.ConCommTypeList.Click);
    });
    if (instrument.empty() || Form().ConMeterName[0].Value() == instrument) return;
    Happen(*this, [&](MainForm& form) {
        form.ConMeterName[0].Set(instrument);
        RunIfSet(form.ConMeterName[0].Click);
    });
}

void BenchSession::Press(int toolbarButton) {
    RunEvent(Form(), [&] { RunToolbarCommand(Form(), toolbarButton); });
}

void BenchSession::Click(int row, int col) {
    RunEvent(Form(), [&] {
        Form().ParameterGrid().Select(row, col);
        MSHFlexGrid1_Click(Form(), 0);
    });
}

void BenchSession::TypeAndEnter(const Text& entry) {
    RunEvent(Form(), [&] {
        Form().InputText.Set(entry);
        InputText_KeyDown(Form(), key::kEnter);
    });
}

void BenchSession::WillAnswer(const std::vector<std::string>& hexReplies) {
    line.Answer = [hexReplies, next = std::size_t{0}](const std::string&) mutable -> std::vector<Arrival> {
        if (next >= hexReplies.size()) return {};
        const std::string reply = BytesOfHex(hexReplies[next++]);
        if (reply.empty()) return {};
        return {{1, reply}};
    };
}

std::vector<std::string> BenchSession::SentFrames() const {
    std::vector<std::string> frames;
    for (const SentFrame& frame : line.Frames()) frames.push_back(HexOfBytes(frame.bytes));
    return frames;
}

void Happen(BenchSession& bench, const std::function<void(MainForm&)>& event) {
    RunEvent(bench.Form(), [&] { event(bench.Form()); });
}

}  // namespace commtest::testing
