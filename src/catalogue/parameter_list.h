#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "catalogue/list_lines.h"
#include "host/store.h"
#include "runtime/text.h"

// The parameter list TQ.ini: blocks of a device head, a type line and one row a parameter.
namespace commtest {

// What is found and what is put in its place, in the order of 字符_替换.
using Replacements = std::vector<std::pair<Text, Text>>;

Replacements ReplacementsOf(const StoreRows& rows);

// Each replacement once, at the first place of its text, while the line holds neither 三屏 nor 三相.
void RepairImportLine(Text& line, const Replacements& replacements);

// A row cut into its fields; what is missing is empty.
struct ListRow {
    Text name;          // without blanks; behind a colon in it some stand again
    Text address;       // length digit and three digits, upper case
    Text decimalPoint;  // "0" where fewer than two fields follow the address
    Text attribute;
    Text lowerLimit;
    Text upperLimit;
    int fieldsTooMany = 0;
};

// Of a row in upper case and without blanks at its ends.
ListRow CutListRow(TextView line);

// Whether the first four characters are hexadecimal digits.
bool BeginsWithAddress(TextView text);

bool IsHexadecimal(TextView text);

struct ListDevice {
    Text name;
    Text code;             // 编号
    bool hasType = false;  // a type line came; else the thirtieth line stands for it
};

// A walk through a list, line by line.
class ListWalk {
  public:
    enum class Step {
        Passed,  // a line outside the blocks
        Device,  // a device head, and the lines down to its type line
        Row,     // of the block
        BlockEnd,
        ListEnd,  // the line that ends the list, or the end of the file behind a block
    };

    ListWalk(ListLines& lines, Replacements replacements)
        : lines_(lines), replacements_(std::move(replacements)) {}

    // Error 62 where the file ends inside a block; UnreadableLine.
    Step Next();

    // Of the last step.
    const ListDevice& Device() const { return device_; }
    const ListRow& Row() const { return row_; }
    const Text& LineText() const { return line_; }  // in upper case, repaired, without blanks at its ends
    int DeviceLine() const { return deviceLine_; }  // number of the device head, from 1

  private:
    Step NextOutside();
    Step NextInside();
    void TakeDevice();
    Text LineInside();

    ListLines& lines_;
    Replacements replacements_;
    bool isInside_ = false;
    Text line_;
    int deviceLine_ = 0;
    ListDevice device_;
    ListRow row_;
};

}  // namespace commtest
