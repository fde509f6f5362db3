#include "catalogue/instrument_catalogue.h"

#include "catalogue/number_columns.h"
#include "catalogue/statements.h"
#include "runtime/number.h"

namespace commtest {

namespace {

const Statements& PageOf(const Store& store) { return StatementsOf(store.Engine()); }

Text NumberOf(int number) { return FromUtf8(std::to_string(number)); }

int CountOf(Store& store, const Text& statement) { return ToWhole32(store.Query(statement).At(0, 0)); }

}  // namespace

std::int16_t ProtocolRecord::Code() const { return ToWhole16(codeText); }

// Columns of the result: 字段, 宽度.
std::vector<ProtocolRecord> InstrumentCatalogue::ProtocolList(TextView table) const {
    const StoreRows result = SettingsOf(table, PageOf(store_).protocolList);
    std::vector<ProtocolRecord> protocols;
    for (std::size_t row = 0; row < result.rows.size(); ++row) {
        protocols.push_back({Trim(result.At(row, 0)), result.At(row, 1)});
    }
    return protocols;
}

StoreRows InstrumentCatalogue::DataTypeList(TextView table) const {
    return SettingsOf(table, PageOf(store_).dataTypeList);
}

StoreRows InstrumentCatalogue::GridLayout(TextView table) const {
    return SettingsOf(table, PageOf(store_).gridLayout);
}

StoreRows InstrumentCatalogue::SettingsOf(TextView table, const Text& statement) const {
    return store_.Query(StatementWith(statement, {NameInStatement(store_.Engine(), table)}));
}

StoreRows InstrumentCatalogue::Replacements() const { return store_.Query(PageOf(store_).replacements); }

StoreRows InstrumentCatalogue::InstrumentsOfProtocol(const Text& protocol) const {
    return store_.Query(StatementWith(PageOf(store_).instrumentsOfProtocol, {protocol}));
}

StoreRows InstrumentCatalogue::ParametersOfInstrument(const Text& name) const {
    return store_.Query(StatementWith(PageOf(store_).parametersOfInstrument, {name}));
}

StoreRows InstrumentCatalogue::ToolbarParameters(ParameterListForm form, const Text& name) const {
    const Statements& page = PageOf(store_);
    const bool apart = form == ParameterListForm::LengthApart;
    return store_.Query(
        StatementWith(apart ? page.parametersLengthApart : page.parametersLengthInFront, {name}));
}

StoreRows InstrumentCatalogue::InstrumentCode(const Text& protocol, const Text& name) const {
    return store_.Query(StatementWith(PageOf(store_).instrumentCode, {protocol, name}));
}

StoreRows InstrumentCatalogue::InstrumentsByCode(const Text& protocol) const {
    return store_.Query(StatementWith(PageOf(store_).instrumentsByCode, {protocol}));
}

StoreRows InstrumentCatalogue::CatalogueList() const { return store_.Query(PageOf(store_).catalogueList); }

StoreRows InstrumentCatalogue::ChipList() const { return store_.Query(PageOf(store_).chipList); }

StoreRows InstrumentCatalogue::ChipRecord(const Text& name, const Text& file) const {
    return store_.Query(StatementWith(PageOf(store_).chipRecord, {name, file}));
}

StoreRows InstrumentCatalogue::RecordingsList() const { return store_.Query(PageOf(store_).recordingsList); }

StoreRows InstrumentCatalogue::RecordedInstruments(const Text& protocol) const {
    return store_.Query(StatementWith(PageOf(store_).recordedInstruments, {protocol}));
}

StoreRows InstrumentCatalogue::FramesOfRecording(const Text& name, const Text& note) const {
    return store_.Query(StatementWith(PageOf(store_).framesOfRecording, {name, note}));
}

StoreRows InstrumentCatalogue::NotesOfInstrument(const Text& name) const {
    return store_.Query(StatementWith(PageOf(store_).notesOfInstrument, {name}));
}

StoreRows InstrumentCatalogue::RecordedPair(const Text& name, const Text& reply, const Text& note) const {
    return store_.Query(StatementWith(PageOf(store_).recordedPair, {name, reply, note}));
}

void InstrumentCatalogue::AddRecordedExchange(const RecordedExchange& exchange) {
    store_.AddRow(u"通讯_仿真",
                  {u"仪表名称", u"协议", u"说明", u"编码", u"采集日期", u"地址", u"指令", u"回送"},
                  {exchange.instrument, exchange.protocol, exchange.note, exchange.code, exchange.day,
                   exchange.row, exchange.request, exchange.reply});
}

void InstrumentCatalogue::RenameRecordedInstrument(const Text& newName, const Text& oldName) {
    store_.Execute(StatementWith(PageOf(store_).renameRecordedInstrument, {newName, oldName}));
}

void InstrumentCatalogue::ChangeNote(const Text& newNote, const Text& oldNote) {
    store_.Execute(StatementWith(PageOf(store_).changeNote, {newNote, oldNote}));
}

void InstrumentCatalogue::DeleteRecording(const Text& name, const Text& note) {
    store_.Execute(StatementWith(PageOf(store_).deleteRecording, {name, note}));
}

void InstrumentCatalogue::ClearCatalogue() { store_.Execute(PageOf(store_).clearCatalogue); }

bool InstrumentCatalogue::ClearSomeInstruments() {
    if (CountOf(store_, PageOf(store_).instrumentCount) == 0) return false;
    store_.Execute(PageOf(store_).clearSomeInstruments);
    return true;
}

CatalogueSize InstrumentCatalogue::Size() const {
    const Statements& page = PageOf(store_);
    return {CountOf(store_, page.instrumentCount), CountOf(store_, page.parameterCount)};
}

StoreRows InstrumentCatalogue::Classes() const { return store_.Query(PageOf(store_).classes); }

StoreRows InstrumentCatalogue::AllInstruments() const { return store_.Query(PageOf(store_).allInstruments); }

StoreRows InstrumentCatalogue::AllParameters() const { return store_.Query(PageOf(store_).allParameters); }

void InstrumentCatalogue::AddClass(const Text& name, int id) {
    store_.AddRow(u"仪表_类别", {u"类别", u"类别ID"}, {name, NumberOf(id)});
}

void InstrumentCatalogue::AddInstrument(const InstrumentRecord& instrument) {
    store_.AddRow(
        u"仪表_名称", {u"仪表ID", u"仪表名称", u"编号", u"协议", u"编码", u"类别", u"类别ID"},
        {NumberOf(instrument.id), instrument.name, instrument.code, instrument.protocol, instrument.sortKey,
         instrument.className, ValueFor(store_.Engine(), u"类别ID", instrument.classId)});
}

void InstrumentCatalogue::AddParameter(const ParameterRecord& parameter) {
    static const Text table = u"仪表_参数";
    static const std::vector<Text> columns = {u"ID",   u"仪表ID", u"参数名称", u"地址",  u"长度",
                                              u"属性", u"小数点", u"下限值",   u"上限值"};
    std::vector<StoreValue> values;
    values.reserve(columns.size());
    for (const int number : {parameter.id, parameter.instrumentId}) values.emplace_back(NumberOf(number));
    for (const Text* text : {&parameter.name, &parameter.address, &parameter.length, &parameter.attribute,
                             &parameter.decimalPoint, &parameter.lowerLimit, &parameter.upperLimit}) {
        values.emplace_back(*text);
    }
    store_.AddRow(table, columns, values);
}

std::unique_ptr<RowCursor> InstrumentCatalogue::OpenExportRows() const {
    return store_.OpenCursor(PageOf(store_).exportRows);
}

}  // namespace commtest
