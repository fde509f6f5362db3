#pragma once

#include <functional>
#include <optional>
#include <string>

#include "catalogue/table_copy.h"

namespace commtest {

// Something of a table's file that a catalogue did not take, or not as it stood.
struct TableFinding {
    enum class Kind {
        NoFile,         // the table stays empty
        NoHeading,      // the file is empty: so does the table
        NoKeyColumn,    // no row has a key: so does the table
        MissingColumn,  // nulls stand in it
        UnknownColumn,  // is left out
        FieldCount,     // of the row is another one than that of the heading: it is left out
        OpenQuote,      // the row has no end: it is left out
        KeyIsNoNumber,  // the row is left out
        KeyTwice,       // the later row is left out
        NoInstrument,   // of that key: the parameter is left out
        NoNumber,       // a null takes the place of the value
    };
    Kind kind = Kind::NoFile;
    Text table;
    int line = 0;  // from 1; 0 for the file as a whole
    Text column;
    Text value;

    bool operator==(const TableFinding&) const = default;
};

// The bytes of a table's file, UTF-8 or code page 936; nothing if there is none.
using TableFile = std::function<std::optional<std::string>(const Text& table)>;

// Makes the tables in an open and empty store and fills them from a file of comma-separated lines each, the
// first of which names the columns, in whatever order. Keys, types and the relation are checked; what does
// not hold is told and left out. In one transaction: the store's run-time error leaves it as it was. What
// stands in it then.
std::vector<TableSize> LoadTables(Store& store, const TableFile& file,
                                  const std::function<void(const TableFinding&)>& found,
                                  const RowProgress& progress = {});

// A table as such a file, in UTF-8, handed out in pieces.
void DumpTable(Store& store, const Text& table, const std::function<void(const std::string&)>& write);

}  // namespace commtest
