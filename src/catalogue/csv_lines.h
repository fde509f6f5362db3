#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/store.h"

namespace commtest {

// Reads a text of comma-separated lines as exporters of databases write them: a field in quotes holds commas,
// line ends and doubled quotes; nothing between two commas is a null, "" is an empty text. Line ends are CR
// LF or LF.
class CsvReader {
  public:
    // The text stays with the caller.
    explicit CsvReader(TextView text) : text_(text) {}

    // The fields of the next line; nothing behind the last one. Empty lines are passed over.
    std::optional<std::vector<StoreValue>> Next();

    // Where the line given last begins, from 1.
    int Line() const { return line_; }

    // False for a line whose last quote is missing: it takes everything to the end.
    bool IsWhole() const { return isWhole_; }

  private:
    StoreValue NextField();
    Text QuotedRest();
    bool TakesLineEnd();

    TextView text_;
    std::size_t place_ = 0;
    int line_ = 0;
    int nextLine_ = 1;
    bool isWhole_ = true;
};

// A line as CsvReader reads it, without its line end; of a number column the value stands without quotes.
Text CsvLineOf(const std::vector<StoreValue>& values, const std::vector<Text>& columns);

}  // namespace commtest
