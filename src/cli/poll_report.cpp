#include "cli/poll_report.h"

#include <algorithm>
#include <array>

#include "cli/answer_words.h"
#include "cli/scaled_values.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

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

bool IsWanted(const std::vector<int>& rows, int row) {
    return rows.empty() || std::find(rows.begin(), rows.end(), row) != rows.end();
}

std::vector<Text> RowOf(const MainForm& form, int row, const ScaledValues& scaled) {
    const Grid& grid = form.ParameterGrid();
    std::vector<Text> cells = {WholeText(row)};
    for (int col = column::kName; col < column::kScaledValue; ++col) cells.push_back(grid.Cell(row, col));
    cells.push_back(scaled.Of(form, row));
    return cells;
}

CellKind KindOf(int col) {
    if (col == column::kNumber) return CellKind::Number;
    return col == column::kScaledValue ? CellKind::Reading : CellKind::Words;
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

}  // namespace

Table GridTable(const MainForm& form, const ReportedRows& reported) {
    const Grid& grid = form.ParameterGrid();
    Table table;
    for (int col = 0; col < column::kNewValue; ++col) {
        table.columns.push_back({kKeys[static_cast<std::size_t>(col)], grid.Cell(0, col), KindOf(col)});
    }
    for (int row = 1; row < grid.Rows(); ++row) {
        if (!HoldsParameter(grid, row) || !IsWanted(reported.rows, row)) continue;
        table.rows.push_back(RowOf(form, row, reported.scaled));
    }
    return table;
}

std::string PollReport(const MainForm& form, const LineOptions& options, const Statistics& statistics,
                       const ReportedRows& reported) {
    JsonWriter json(kJsonInLines);
    json.BeginObject();
    json.PutNumber(u"address", QString::fromStdU16String(options.address).toInt());
    json.PutText(u"instrument", options.instrument);
    json.PutKey(u"parameters");
    PutTable(GridTable(form, reported), json);
    json.PutText(u"port", options.port);
    json.PutText(u"protocol", options.protocol);
    json.PutText(u"settings", options.settings);
    json.PutKey(u"statistics");
    PutStatistics(statistics, json);
    if (form.LastStop().cause == StopCause::Exception) PutStop(form, json);
    json.EndObject();
    return json.Take();
}

}  // namespace commtest
