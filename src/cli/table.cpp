#include "cli/table.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "cli/printable_text.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kFormatOption = {u"format", u"text|csv|json", u"结果的格式", u"text"};

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

std::string PrintedCsv(const Table& table) {
    std::string printed = CsvLine(Headings(table));
    for (const auto& row : table.rows) printed += CsvLine(row);
    return printed;
}

QJsonValue JsonCell(const Text& cell, CellKind kind) {
    const QString text = QString::fromStdU16String(cell);
    if (kind == CellKind::Number) return text.toInt();
    if (kind == CellKind::YesNo) return text == u"是"_s;
    return text;
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

std::string Printed(const Table& table, Format format) {
    switch (format) {
        case Format::Csv: return PrintedCsv(table);
        case Format::Json: return PrintedJson(JsonOf(table));
        default: return PrintedText(table);
    }
}

QJsonArray JsonOf(const Table& table) {
    QJsonArray array;
    for (const auto& row : table.rows) {
        QJsonObject object;
        for (std::size_t c = 0; c < row.size(); ++c) {
            object[table.columns[c].key.toString()] = JsonCell(row[c], table.columns[c].kind);
        }
        array.append(object);
    }
    return array;
}

std::string CsvLine(const std::vector<Text>& cells) {
    std::string line;
    for (const Text& cell : cells) line += CsvField(cell) + ",";
    line.back() = '\n';
    return line;
}

std::string PrintedJson(const QJsonValue& value) {
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    QString printed;
    for (const QChar unit : QString::fromUtf8(document.toJson())) {
        // The document leaves these control characters as they are; they stand in its texts only.
        if (unit.unicode() >= 0x7F && unit.unicode() <= 0x9F) {
            printed += u"\\u00"_s + QString::number(unit.unicode(), 16);
        } else {
            printed += unit;
        }
    }
    return printed.toStdString();
}

}  // namespace commtest
