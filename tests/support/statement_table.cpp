#include "support/statement_table.h"

namespace commtest::testing {

const std::vector<NamedStatement>& AllStatements() {
    static const std::vector<NamedStatement> statements = {
        {"protocolList", &Statements::protocolList, 1, u"表格_设置"},
        {"dataTypeList", &Statements::dataTypeList, 1, u"表格_设置"},
        {"gridLayout", &Statements::gridLayout, 1, u"表格_设置"},
        {"replacements", &Statements::replacements, 0},
        {"instrumentsOfProtocol", &Statements::instrumentsOfProtocol, 1},
        {"parametersOfInstrument", &Statements::parametersOfInstrument, 1},
        {"parametersLengthApart", &Statements::parametersLengthApart, 1},
        {"parametersLengthInFront", &Statements::parametersLengthInFront, 1},
        {"instrumentCode", &Statements::instrumentCode, 2},
        {"instrumentsByCode", &Statements::instrumentsByCode, 1},
        {"catalogueList", &Statements::catalogueList, 0},
        {"chipList", &Statements::chipList, 0},
        {"chipRecord", &Statements::chipRecord, 2},
        {"recordingsList", &Statements::recordingsList, 0},
        {"recordedInstruments", &Statements::recordedInstruments, 1},
        {"framesOfRecording", &Statements::framesOfRecording, 2},
        {"notesOfInstrument", &Statements::notesOfInstrument, 1},
        {"recordedPair", &Statements::recordedPair, 3},
        {"renameRecordedInstrument", &Statements::renameRecordedInstrument, 2},
        {"changeNote", &Statements::changeNote, 2},
        {"deleteRecording", &Statements::deleteRecording, 2},
        {"classes", &Statements::classes, 0},
        {"allInstruments", &Statements::allInstruments, 0},
        {"allParameters", &Statements::allParameters, 0},
        {"exportRows", &Statements::exportRows, 0},
        {"clearCatalogue", &Statements::clearCatalogue, 0},
        {"clearSomeInstruments", &Statements::clearSomeInstruments, 0},
        {"instrumentCount", &Statements::instrumentCount, 0},
        {"parameterCount", &Statements::parameterCount, 0},
    };
    return statements;
}

Text WithArbitraryValues(const Statements& page, const NamedStatement& statement) {
    const Text& text = page.*statement.text;
    switch (statement.values) {
        case 0: return text;
        case 1: return StatementWith(text, {statement.first});
        case 2: return StatementWith(text, {statement.first, u"说明乙"});
        default: return StatementWith(text, {statement.first, u"说明乙", u"说明丙"});
    }
}

void AddRecording(Store& store, const Text& name, const Text& note, const Text& reply) {
    store.AddRow(u"通讯_仿真",
                 {u"仪表名称", u"协议", u"说明", u"编码", u"采集日期", u"地址", u"指令", u"回送"},
                 {name, u"TQ仪表协议", note, u"11000101", u"2024-05-06", u"1", u" 40 30 31", reply});
}

}  // namespace commtest::testing
