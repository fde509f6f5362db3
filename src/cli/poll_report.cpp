#include "cli/poll_report.h"

#include <array>

#include "cli/answer_words.h"
#include "cli/printable_text.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"
#include "session/reply_routing.h"

namespace commtest {

namespace {

constexpr std::array<TextView, column::kNewValue> kKeys = {
    u"row",      u"name",       u"address",   u"length", u"attribute",
    u"decimals", u"singleRead", u"groupRead", u"value",  u"scaledValue"};

// A row behind the parameters has nothing but its number, and the presets of the first five.
bool HoldsParameter(const Grid& grid, int row) {
    for (int col = column::kName; col <= column::kDecimals; ++col) {
        if (!grid.Cell(row, col).empty()) return true;
    }
    return false;
}

std::vector<Text> RowOf(const Grid& grid, int row) {
    std::vector<Text> cells = {WholeText(row)};
    for (int col = column::kName; col < column::kNewValue; ++col) cells.push_back(grid.Cell(row, col));
    return cells;
}

Table StatisticsTable(const MainForm& form) {
    const auto number = [](TextView heading) { return TableColumn{u"", heading, CellKind::Number}; };
    Table table;
    table.columns = {number(u"总计通讯"), number(u"数据不完整"), number(u"校验出错"), number(u"无应答")};
    table.rows = {{WholeText(form.SendCount), WholeText(form.IncompleteCount),
                   WholeText(form.CheckErrorCount), WholeText(form.NoReplyCount)}};
    return table;
}

void PutStatistics(const MainForm& form, int exchanges, JsonWriter& json) {
    json.BeginObject();
    json.PutNumber(u"checkErrors", form.CheckErrorCount);
    json.PutNumber(u"exchanges", exchanges);
    json.PutNumber(u"frames", form.SendCount);
    json.PutNumber(u"incomplete", form.IncompleteCount);
    json.PutNumber(u"noReply", form.NoReplyCount);
    json.EndObject();
}

void PutStop(const MainForm& form, JsonWriter& json) {
    const Stop& stop = form.LastStop();
    json.PutKey(u"stopped");
    json.BeginObject();
    json.PutText(u"exception", NumbersOfException(*stop.outcome).toStdU16String());
    json.PutNumber(u"exchange", stop.exchange);
    json.PutText(u"reason", WordsOnAnswer(form, *stop.outcome).toStdU16String());
    json.EndObject();
}

std::string JsonReport(const MainForm& form, const LineOptions& options, int exchanges) {
    JsonWriter json(kJsonInLines);
    json.BeginObject();
    json.PutNumber(u"address", QString::fromStdU16String(options.address).toInt());
    json.PutText(u"instrument", options.instrument);
    json.PutKey(u"parameters");
    PutTable(GridTable(form), json);
    json.PutText(u"port", options.port);
    json.PutText(u"protocol", options.protocol);
    json.PutText(u"settings", options.settings);
    json.PutKey(u"statistics");
    PutStatistics(form, exchanges, json);
    if (form.LastStop().cause == StopCause::Exception) PutStop(form, json);
    json.EndObject();
    return json.Take();
}

}  // namespace

Table GridTable(const MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    Table table;
    for (int col = 0; col < column::kNewValue; ++col) {
        const CellKind kind = col == column::kNumber ? CellKind::Number : CellKind::Words;
        table.columns.push_back({kKeys[static_cast<std::size_t>(col)], grid.Cell(0, col), kind});
    }
    for (int row = 1; row < grid.Rows(); ++row) {
        if (HoldsParameter(grid, row)) table.rows.push_back(RowOf(grid, row));
    }
    return table;
}

std::string PollReport(MainForm& form, const LineOptions& options, int exchanges, Format format) {
    if (format == Format::Json) return JsonReport(form, options, exchanges);
    const std::string table = Printed(GridTable(form), format) + "\n";
    if (format == Format::Csv) return table + Printed(StatisticsTable(form), format);
    ShowStatistics(form);
    return table + PrintableText(form.ConCommMessage[2].Value()) + "\n";
}

}  // namespace commtest
