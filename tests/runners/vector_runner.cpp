// vector_runner < FILE.jsonl: calls the routine of each line and writes the line back with what it gave, see
// tests/cases/README.md.

#include <algorithm>
#include <exception>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>

#include "catalogue/channel_table.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/parameter_list_export.h"
#include "catalogue/parameter_list_import.h"
#include "host/file_names.h"
#include "numbers/bcd_code_explainer.h"
#include "numbers/bit_text.h"
#include "numbers/comm_code_explainer.h"
#include "numbers/crc16.h"
#include "numbers/device_code_explainers.h"
#include "numbers/float_code_explainers.h"
#include "numbers/float_value_explainers.h"
#include "numbers/ieee_code_explainer.h"
#include "numbers/lrc.h"
#include "numbers/register_codecs.h"
#include "numbers/two_byte_explainers.h"
#include "protocol_modbus/decimal_row.h"
#include "protocol_modbus/rtu_frame.h"
#include "protocol_native/check_words.h"
#include "protocol_special/hct615d_checks.h"
#include "protocol_special/hct615d_request.h"
#include "protocol_special/novax_check_word.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "session/address.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "support/bench_session.h"
#include "support/sqlite_store.h"
#include "tools/data_tools.h"
#include "tools/tool_checks.h"

namespace commtest {

namespace {

using Json = nlohmann::ordered_json;
using Routine = Json (*)(const Json& in);

Text TextAt(const Json& in, std::size_t index) { return FromUtf8(in.at(index).get<std::string>()); }
int NumberAt(const Json& in, std::size_t index) { return in.at(index).get<int>(); }

// A routine that rewrites its first argument; up to two numbers follow.
template <auto routine>
Json InPlace(const Json& in) {
    Text text = TextAt(in, 0);
    if constexpr (std::is_invocable_v<decltype(routine), Text&>) {
        routine(text);
    } else if constexpr (std::is_invocable_v<decltype(routine), Text&, int>) {
        routine(text, NumberAt(in, 1));
    } else {
        routine(text, NumberAt(in, 1), NumberAt(in, 2));
    }
    return ToUtf8(text);
}

Json CallHexParse(const Json& in) { return HexParse(TextAt(in, 0)); }
Json CallHexOf(const Json& in) { return ToUtf8(HexOf(TextAt(in, 0))); }
Json CallNumberText(const Json& in) { return ToUtf8(NumberText(ToNumber(TextAt(in, 0)))); }
Json CallByteToBitText(const Json& in) { return ToUtf8(ByteToBitText(NumberAt(in, 0))); }
Json CallBitTextToByte(const Json& in) { return BitTextToByte(TextAt(in, 0)); }

template <bool (*test)(const HexText&)>
Json CallTest(const Json& in) {
    return test(TextAt(in, 0));
}

Json CallCrcTables(const Json& in) {
    const auto index = in.at(0).get<std::size_t>();
    return {kCrcFirstTable.at(index), kCrcSecondTable.at(index)};
}

template <Text (*checkWord)(Text)>
Json CallCheckWord(const Json& in) {
    return ToUtf8(checkWord(TextAt(in, 0)));
}

Json CallMakeCRCWord(const Json& in) {
    testing::BenchSession bench;
    bench.Form().ProtocolCode = static_cast<std::int16_t>(NumberAt(in, 1));
    Text frame = TextAt(in, 0);
    MakeCRCWord(bench.Form(), frame);
    return ToUtf8(frame);
}

Json CallAddressText(const Json& in) {
    testing::BenchSession bench;
    MainForm& form = bench.Form();
    form.ConMeterAddr.Set(TextAt(in, 1));
    form.AddressText = TextAt(in, 2);
    form.ProtocolCode = static_cast<std::int16_t>(NumberAt(in, 0));
    ConMeterAddr_Change(form);
    return {{"AddressText", ToUtf8(form.AddressText)}, {"ConMeterAddr", ToUtf8(form.ConMeterAddr.Value())}};
}

Json CallBuildHct615dReadRequest(const Json& in) {
    testing::BenchSession bench;
    bench.Form().AddressText = TextAt(in, 0);
    BuildHct615dReadRequest(bench.Form(), bench.line);
    return ToUtf8(bench.Form().SendText);
}

template <void (*explain)(const Text& code, Text& explanation)>
Json CallExplain(const Json& in) {
    Text explanation;
    explain(TextAt(in, 0), explanation);
    return ToUtf8(explanation);
}

template <void (*explain)(Text& text, Text& explanation)>
Json CallRewritingExplain(const Json& in) {
    Text text = TextAt(in, 0);
    Text explanation;
    explain(text, explanation);
    return {{"text", ToUtf8(text)}, {"expl", ToUtf8(explanation)}};
}

Json CallExplainCommCode(const Json& in) {
    Text explanation;
    ExplainCommCode(TextAt(in, 0), TextAt(in, 1), explanation);
    return ToUtf8(explanation);
}

Json CallMakeCRCWordNOVAX(const Json& in) {
    Text frame = TextAt(in, 0);
    MakeCRCWordNOVAX(frame, TextAt(in, 1));
    return ToUtf8(frame);
}

Json CallCrc16OfByteArray(const Json& in) {
    return ToUtf8(Crc16OfByteArray(in.at(0).get<std::vector<std::uint8_t>>(), NumberAt(in, 1)));
}

Json CallAppendXorCheck(const Json& in) {
    Text text = TextAt(in, 0);
    const Text check = AppendXorCheck(text);
    return {{"text", ToUtf8(text)}, {"check", ToUtf8(check)}};
}

// The tool with one protocol, which is chosen.
struct ToolBench {
    explicit ToolBench(int protocolCode) {
        Form_Load(tools, {{u"", static_cast<std::int16_t>(protocolCode)}});
    }

    Json Message() const {
        return session.dialogs.Shown.empty() ? Json() : Json(session.dialogs.Texts().back());
    }
    Json Box(std::size_t index) const { return ToUtf8(tools.OutString.at(index).Value()); }

    testing::BenchSession session;
    DataTools tools{session.dialogs, session.line, session.program};
};

Json CallCrc16OfHexText(const Json& in) {
    const auto check = Crc16OfHexText(TextAt(in, 0));
    return {{"check", ToUtf8(check.value_or(Text()))}, {"msg", check ? Json() : Json(ToUtf8(kNoHexText))}};
}

Json CallOutStringChange(const Json& in) {
    ToolBench bench(0);
    bench.tools.ConShowType.Choose(NumberAt(in, 1));
    bench.tools.OutString[0].Set(TextAt(in, 0));
    return bench.Box(3);
}

Json CallCommand1Click(const Json& in) {
    ToolBench bench(NumberAt(in, 1));
    bench.tools.OutMode.Choose(NumberAt(in, 0));
    bench.tools.ConShowType.Choose(NumberAt(in, 3));
    bench.tools.OutString[0].Set(TextAt(in, 2));
    Command1_Click(bench.tools, 0);
    return {{"s0", bench.Box(0)},
            {"s1", bench.Box(1)},
            {"s2", bench.Box(2)},
            {"s3", bench.Box(3)},
            {"msg", bench.Message()}};
}

template <void (*scale)(Grid&, int, Text&, bool)>
Json CallScale(const Json& in) {
    Grid grid;
    grid.SetSize(0, column::kCount);
    const Json& rows = in.at(0);
    grid.SetRows(static_cast<int>(rows.size()));
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
            grid.SetCell(row, col,
                         TextAt(rows.at(static_cast<std::size_t>(row)), static_cast<std::size_t>(col)));
        }
    }
    Text value = TextAt(in, 2);
    scale(grid, NumberAt(in, 1), value, in.at(3).get<bool>());
    return ToUtf8(value);
}

// --- Lists ---

Replacements ReplacementsAt(const Json& in, std::size_t index) {
    Replacements replacements;
    for (const Json& pair : in.at(index)) replacements.emplace_back(TextAt(pair, 0), TextAt(pair, 1));
    return replacements;
}

Json CallRepairImportLine(const Json& in) {
    Text line = TextAt(in, 0);
    RepairImportLine(line, ReplacementsAt(in, 1));
    return ToUtf8(line);
}

Json RowsOf(const StoreRows& table, const std::vector<std::string>& numbers) {
    Json rows = Json::array();
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        Json values = Json::object();
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const std::string column = ToUtf8(table.columns[i]);
            const bool isNumber = std::find(numbers.begin(), numbers.end(), column) != numbers.end();
            const std::string value = ToUtf8(table.At(row, i));
            values[column] = isNumber ? Json(std::stoi(value)) : Json(value);
        }
        rows.push_back(std::move(values));
    }
    return rows;
}

// The characters of the code, which stand where no class has their number, are text; the store has a number.
Json InstrumentsOf(const InstrumentCatalogue& catalogue) {
    Json instruments = RowsOf(catalogue.AllInstruments(), {"仪表ID"});
    for (Json& instrument : instruments) {
        const Text characters = Mid(FromUtf8(instrument["编号"].get<std::string>()), 5, 2);
        const auto name = instrument["类别"].get<std::string>();
        Json& id = instrument["类别ID"];
        id = name == ToUtf8(characters) ? Json(name) : Json(std::stoi(id.get<std::string>()));
    }
    return instruments;
}

Json CallImportParameterList(const Json& in) {
    const auto store = testing::MakeEmptyCatalogue();
    InstrumentCatalogue catalogue(*store);
    for (const Json& pair : in.at(1)) catalogue.AddClass(TextAt(pair, 0), pair.at(1).get<int>());
    for (const auto& [wanted, put] : ReplacementsAt(in, 2)) {
        store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {wanted, put});
    }
    testing::FakeProgramFiles files;
    files.TextFiles[Text(kListFileName)] = TextAt(in, 0);
    testing::FakeDialogs dialogs;
    ImportParameterList(*store, files, dialogs);
    const std::string message = dialogs.Texts().at(0);
    const std::string tail = "  参数数据导入出现错误！";
    const bool bad = message.ends_with(tail);
    return {{"instruments", InstrumentsOf(catalogue)},
            {"params", RowsOf(catalogue.AllParameters(), {"仪表ID", "ID"})},
            {"bad", bad},
            {"message_tail", bad ? tail : message},
            {"message", message}};
}

void AddExportRow(InstrumentCatalogue& catalogue, const Json& row, int instrument, int id) {
    ParameterRecord parameter;
    parameter.id = id;
    parameter.instrumentId = instrument;
    parameter.name = TextAt(row, 0);
    parameter.length = Left(TextAt(row, 1), 1);
    parameter.address = Mid(TextAt(row, 1), 2);
    parameter.decimalPoint = TextAt(row, 3);
    parameter.attribute = TextAt(row, 4);
    parameter.lowerLimit = TextAt(row, 5);
    parameter.upperLimit = TextAt(row, 6);
    catalogue.AddParameter(parameter);
}

// The rows stand in the catalogue so that its query gives them in their order.
Json CallExportParameterList(const Json& in) {
    const auto store = testing::MakeEmptyCatalogue();
    InstrumentCatalogue catalogue(*store);
    InstrumentRecord instrument;
    int id = 0;
    for (const Json& row : in.at(0)) {
        const Text name = TextAt(row, 7);
        if (instrument.id == 0 || instrument.name != name || instrument.code != TextAt(row, 8)) {
            ++instrument.id;
            instrument.name = name;
            instrument.code = TextAt(row, 8);
            instrument.classId = u"1";
            catalogue.AddInstrument(instrument);
        }
        AddExportRow(catalogue, row, instrument.id, ++id);
    }
    testing::FakeProgramFiles files;
    Text& file = files.TextFiles[Text(kListCopyFileName)];
    file = TextAt(in, 1);
    ExportParameterList(*store, files);
    return ToUtf8(file);
}

Json CallGenerateChannelTable(const Json& in) {
    testing::FakeProgramFiles files;
    files.TextFiles[Text(kTemplateFileName)] = TextAt(in, 0);
    Text& file = files.TextFiles[Text(kChannelTableFileName)];
    file = TextAt(in, 1);
    GenerateChannelTable(files);
    return ToUtf8(file);
}

const std::map<std::string, Routine>& Routines() {
    static const std::map<std::string, Routine> routines = {
        {"HexParse", CallHexParse},
        {"HexOf", CallHexOf},
        {"NumberTextOfText", CallNumberText},
        {"FitTextWidth", InPlace<FitTextWidth>},
        {"ConvertHexText", InPlace<ConvertHexText>},
        {"ValueToCommCode", InPlace<ValueToCommCode>},
        {"CommCodeToValue", InPlace<CommCodeToValue>},
        {"ConvertCommCodeAuto", InPlace<ConvertCommCodeAuto>},
        {"PadWideText", InPlace<PadWideText>},
        {"ByteToBitText", CallByteToBitText},
        {"BitTextToByte", CallBitTextToByte},
        {"MakeCRCWord", CallMakeCRCWord},
        {"MakeCRCWordTq", InPlace<MakeCRCWordTq>},
        {"MakeCRCWordTqTwo", InPlace<MakeCRCWordTqTwo>},
        {"TestCRCWordTq", CallTest<TestCRCWordTq>},
        {"TestCRCWordTqTwo", CallTest<TestCRCWordTqTwo>},
        {"LrcOfPairs", CallCheckWord<LrcOfPairs>},
        {"LrcOfChars", CallCheckWord<LrcOfChars>},
        {"AddressText", CallAddressText},
        {"AppendRtuCrc", InPlace<AppendRtuCrc>},
        {"TestRtuCrc", CallTest<TestRtuCrc>},
        {"CrcTables", CallCrcTables},
        {"AppendXorCheck", CallAppendXorCheck},
        {"CheckHct615dFrame", CallTest<CheckHct615dFrame>},
        {"Command1_Click", CallCommand1Click},
        {"Crc16OfByteArray", CallCrc16OfByteArray},
        {"Crc16OfHexText", CallCrc16OfHexText},
        {"MakeCRCWordNOVAX", CallMakeCRCWordNOVAX},
        {"OutString_Change", CallOutStringChange},
        {"ApplyDecimalPoint", CallScale<ApplyDecimalPoint>},
        {"ScaleByDecimalRow", CallScale<ScaleByDecimalRow>},
        {"BuildHct615dReadRequest", CallBuildHct615dReadRequest},
        {"ExportParameterList", CallExportParameterList},
        {"GenerateChannelTable", CallGenerateChannelTable},
        {"ImportParameterList", CallImportParameterList},
        {"RepairImportLine", CallRepairImportLine},
        {"ExplainAccumulatedValue", CallExplain<ExplainAccumulatedValue>},
        {"ExplainBcdCode", CallExplain<ExplainBcdCode>},
        {"ExplainCommCode", CallExplainCommCode},
        {"ExplainDisplayCode", CallExplain<ExplainDisplayCode>},
        {"ExplainFloatCode", CallRewritingExplain<ExplainFloatCode>},
        {"ExplainFlowMeterBcd", CallExplain<ExplainFlowMeterBcd>},
        {"ExplainIeeeCode", CallExplain<ExplainIeeeCode>},
        {"ExplainSignMagnitude", CallExplain<ExplainSignMagnitude>},
        {"ExplainSignMagnitudeSwapped", CallExplain<ExplainSignMagnitudeSwapped>},
        {"ExplainTqCode", CallExplain<ExplainTqCode>},
        {"ExplainTwosComplement", CallExplain<ExplainTwosComplement>},
        {"ExplainValueToFloatCode", CallRewritingExplain<ExplainValueToFloatCode>},
        {"ExplainValueToIeee", CallExplain<ExplainValueToIeee>},
    };
    return routines;
}

void Run(Json& line) {
    line["out"] = nullptr;
    line["err"] = nullptr;
    const auto found = Routines().find(line.at("f").get<std::string>());
    if (found == Routines().end()) {
        line["err"] = "unknown";
        return;
    }
    try {
        line["out"] = found->second(line.at("in"));
    } catch (const RuntimeError& error) {
        line["err"] = error.Number();
    }
}

void RunAll(std::istream& in, std::ostream& out) {
    for (std::string text; std::getline(in, text);) {
        if (text.empty()) continue;
        Json line = Json::parse(text);
        Run(line);
        // In ASCII: a reader may take some of the other characters for a line end.
        constexpr bool kInAscii = true;
        out << line.dump(-1, ' ', kInAscii) << '\n';
    }
}

}  // namespace

}  // namespace commtest

int main() {
    try {
        commtest::RunAll(std::cin, std::cout);
    } catch (const std::exception& error) {
        std::cerr << "vector_runner: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
