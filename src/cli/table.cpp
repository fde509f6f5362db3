#include "cli/table.h"

#include <QHash>
#include <algorithm>
#include <numeric>

#include "cli/printable_text.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kFormatOption = {u"format", u"text|csv|json", u"结果的格式", u"text"};
const Option kReportFormatOption = {u"format", u"text|json", u"结果的格式", u"text"};

namespace {

std::string Padding(int width) { return std::string(static_cast<std::size_t>(std::max(width, 0)), ' '); }

std::vector<Text> Headings(const Table& table) {
    std::vector<Text> headings;
    for (const TableColumn& column : table.columns) headings.emplace_back(column.heading);
    return headings;
}

std::vector<int> Widths(const std::vector<std::vector<Text>>& lines) {
    std::vector<int> widths(lines.front().size(), 0);
    for (const auto& line : lines) {
        for (std::size_t c = 0; c < line.size(); ++c) widths[c] = std::max(widths[c], DisplayWidth(line[c]));
    }
    return widths;
}

std::string PrintedText(const Table& table) {
    std::vector<std::vector<Text>> lines = {Headings(table)};
    lines.insert(lines.end(), table.rows.begin(), table.rows.end());
    for (auto& line : lines) {
        for (Text& cell : line) cell = FromUtf8(PrintableLine(cell));
    }
    const std::vector<int> widths = Widths(lines);
    std::string printed;
    for (const auto& line : lines) {
        std::string row;
        for (std::size_t c = 0; c < line.size(); ++c) {
            const std::string padding = Padding(widths[c] - DisplayWidth(line[c]));
            const bool isNumber = table.columns[c].kind == CellKind::Number;
            row += (isNumber ? padding + ToUtf8(line[c]) : ToUtf8(line[c]) + padding) + "  ";
        }
        row.erase(row.find_last_not_of(' ') + 1);
        printed += row + "\n";
    }
    return printed;
}

std::string CsvField(const Text& cell) {
    std::string field = PrintableText(cell);
    if (field.find_first_of(",\"\n") == std::string::npos) return field;
    for (std::size_t quote = field.find('"'); quote != std::string::npos;
         quote = field.find('"', quote + 2)) {
        field.insert(quote, 1, '"');
    }
    return "\"" + field + "\"";
}

std::vector<Text> Keys(const Table& table) {
    std::vector<Text> keys;
    for (const TableColumn& column : table.columns) keys.emplace_back(column.key);
    return keys;
}

bool IsUndecided(const TableColumn& column, const Text& cell) {
    return column.kind == CellKind::Reading && cell == kUndecided;
}

std::string PrintedCsv(const Table& table) {
    std::string printed = CsvLine(Keys(table));
    for (std::vector<Text> row : table.rows) {
        for (std::size_t c = 0; c < row.size(); ++c) {
            if (IsUndecided(table.columns[c], row[c])) row[c].clear();
        }
        printed += CsvLine(row);
    }
    return printed;
}

void PutCell(const Text& cell, const TableColumn& column, JsonWriter& json) {
    if (IsUndecided(column, cell)) return json.PutNull();
    switch (column.kind) {
        case CellKind::Number: return json.PutNumber(QString::fromStdU16String(cell).toInt());
        case CellKind::YesNo: return json.PutYesNo(cell == u"是");
        default: return json.PutText(cell);
    }
}

std::vector<std::size_t> ColumnsByKey(const Table& table) {
    std::vector<std::size_t> columns(table.columns.size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    std::sort(columns.begin(), columns.end(), [&table](std::size_t one, std::size_t other) {
        return table.columns[one].key < table.columns[other].key;
    });
    return columns;
}

void PutRow(const Table& table, const std::vector<Text>& row, const std::vector<std::size_t>& columns,
            JsonWriter& json) {
    json.BeginObject();
    for (const std::size_t c : columns) {
        json.PutKey(table.columns[c].key);
        PutCell(row[c], table.columns[c], json);
    }
    json.EndObject();
}

std::string PrintedJson(const Table& table) {
    JsonWriter json(kJsonInLines);
    PutTable(table, json);
    return json.Take();
}

}  // namespace

std::optional<Format> FormatNamed(const QString& name) {
    static const QHash<QString, Format> kFormats = {
        {u"text"_s, Format::Plain}, {u"csv"_s, Format::Csv}, {u"json"_s, Format::Json}};
    const auto format = kFormats.constFind(name);
    if (format == kFormats.constEnd()) return std::nullopt;
    return *format;
}

Format FormatOf(const Arguments& arguments) {
    const auto format = FormatNamed(arguments.Value(kFormatOption.name));
    if (!format) throw arguments.BadValue(kFormatOption.name, u" text、csv 或 json"_s);
    return *format;
}

Format ReportFormatOf(const Arguments& arguments) {
    const auto format = FormatNamed(arguments.Value(kReportFormatOption.name));
    if (!format || *format == Format::Csv) {
        throw arguments.BadValue(kReportFormatOption.name, u" text 或 json"_s);
    }
    return *format;
}

std::string Printed(const Table& table, Format format) {
    switch (format) {
        case Format::Csv: return PrintedCsv(table);
        case Format::Json: return PrintedJson(table);
        default: return PrintedText(table);
    }
}

void PutTable(const Table& table, JsonWriter& json) {
    const std::vector<std::size_t> columns = ColumnsByKey(table);
    json.BeginArray();
    for (const auto& row : table.rows) PutRow(table, row, columns, json);
    json.EndArray();
}

void PutOnlyRow(const Table& table, JsonWriter& json) {
    PutRow(table, table.rows.front(), ColumnsByKey(table), json);
}

std::string CsvLine(const std::vector<Text>& cells) {
    std::string line;
    for (const Text& cell : cells) line += CsvField(cell) + ",";
    line.back() = '\n';
    return line;
}

}  // namespace commtest
