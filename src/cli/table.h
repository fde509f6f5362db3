#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/json_text.h"
#include "runtime/text.h"

namespace commtest {

enum class Format { Plain, Csv, Json };

extern const Option kFormatOption;
Format FormatOf(const Arguments& arguments);
// Of a result that is no table: text or JSON.
extern const Option kReportFormatOption;
Format ReportFormatOf(const Arguments& arguments);
std::optional<Format> FormatNamed(const QString& name);

enum class CellKind { Words, Number, YesNo };  // a number is whole, a yes is 是

struct TableColumn {
    TextView key;      // its name in JSON
    TextView heading;  // its name elsewhere
    CellKind kind = CellKind::Words;
};

// A result of the command line: rows of texts.
struct Table {
    std::vector<TableColumn> columns;
    std::vector<std::vector<Text>> rows;
};

// As UTF-8 with "\n" line ends, control characters shown as PrintableText does. Text has its columns side by
// side, numbers on the right; CSV begins with the headings; JSON is that of PutTable.
std::string Printed(const Table& table, Format format);

// One line of CSV.
std::string CsvLine(const std::vector<Text>& cells);

// An array with an object a row, whose members stand in the order of their keys.
void PutTable(const Table& table, JsonWriter& json);

}  // namespace commtest
