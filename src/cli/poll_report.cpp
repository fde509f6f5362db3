#include "cli/poll_report.h"

#include <QJsonObject>
#include <array>

#include "cli/answer_words.h"
#include "cli/printable_text.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"
#include "session/reply_routing.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, column::kNewValue> kKeys = {
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

QJsonObject StatisticsJson(const MainForm& form, int exchanges) {
    return {{u"frames"_s, form.SendCount},
            {u"exchanges"_s, exchanges},
            {u"incomplete"_s, form.IncompleteCount},
            {u"checkErrors"_s, form.CheckErrorCount},
            {u"noReply"_s, form.NoReplyCount}};
}

QJsonObject StopJson(const MainForm& form) {
    const Stop& stop = form.LastStop();
    return {{u"exchange"_s, stop.exchange},
            {u"exception"_s, NumbersOfException(*stop.outcome)},
            {u"reason"_s, WordsOnAnswer(form, *stop.outcome)}};
}

QString ToQt(const Text& text) { return QString::fromStdU16String(text); }

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
    const Table grid = GridTable(form);
    if (format == Format::Json) {
        QJsonObject report = {{u"protocol"_s, ToQt(options.protocol)},
                              {u"instrument"_s, ToQt(options.instrument)},
                              {u"address"_s, ToQt(options.address).toInt()},
                              {u"port"_s, ToQt(options.port)},
                              {u"settings"_s, ToQt(options.settings)},
                              {u"statistics"_s, StatisticsJson(form, exchanges)},
                              {u"parameters"_s, JsonOf(grid)}};
        if (form.LastStop().cause == StopCause::Exception) report[u"stopped"_s] = StopJson(form);
        return PrintedJson(report);
    }
    const std::string table = Printed(grid, format) + "\n";
    if (format == Format::Csv) return table + Printed(StatisticsTable(form), format);
    ShowStatistics(form);
    return table + PrintableText(form.ConCommMessage[2].Value()) + "\n";
}

}  // namespace commtest
