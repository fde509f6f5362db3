#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/json_text.h"
#include "runtime/text.h"

namespace commtest {

enum class Format { Plain, Csv, Json, JsonLines };

extern const Option kFormatOption;
Format FormatOf(const Arguments& arguments);
// Of a result that is no table: text or JSON.
extern const Option kReportFormatOption;
Format ReportFormatOf(const Arguments& arguments);
std::optional<Format> FormatNamed(const QString& name);

// A number is whole, a yes is 是, a reading may be undecided.
enum class CellKind { Words, Number, YesNo, Reading };

// A reading that cannot be told yet: null in JSON, nothing in CSV.
inline constexpr TextView kUndecided = u"未定";

struct TableColumn {
    TextView key;      // its name in JSON and CSV
    TextView heading;  // its caption in text
    CellKind kind = CellKind::Words;
};

// A result of the command line: rows of texts.
struct Table {
    std::vector<TableColumn> columns;
    std::vector<std::vector<Text>> rows;
};

// As UTF-8 with "\n" line ends, control characters shown as PrintableText does. Text has its columns side by
// side, numbers on the right, under its captions; CSV begins with the keys; JSON is that of PutTable.
std::string Printed(const Table& table, Format format);

// One line of CSV.
std::string CsvLine(const std::vector<Text>& cells);

// An array with an object a row, whose members stand in the order of their keys.
void PutTable(const Table& table, JsonWriter& json);
// The object of a table that has one row.
void PutOnlyRow(const Table& table, JsonWriter& json);

}  // namespace commtest
