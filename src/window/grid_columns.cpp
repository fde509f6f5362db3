#include "window/grid_columns.h"

#include <array>

#include "catalogue/chip_records.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr int kUnitsToThePixel = 15;
constexpr int kChipList = 3;

constexpr std::array<ColumnLook, column::kCount> kParameterColumns = {
    {{.smallest = 48, .isCode = true, .isQuiet = true, .endsGroup = true},
     {.smallest = 172, .weight = 40},
     {.smallest = 60, .weight = 2, .isCode = true, .isQuiet = true},
     {.smallest = 48, .weight = 2, .isCode = true, .isQuiet = true},
     {.smallest = 52, .weight = 2, .isCode = true, .isQuiet = true},
     {.smallest = 60, .weight = 2, .isCode = true, .isQuiet = true, .endsGroup = true},
     {.smallest = 104, .weight = 12, .isCode = true},
     {.smallest = 118, .weight = 16, .isCode = true},
     {.smallest = 100, .weight = 8, .isCode = true, .isQuiet = true},
     {.smallest = 116, .weight = 8, .isCode = true, .endsGroup = true},
     {.smallest = 120, .weight = 8, .isCode = true}}};

}  // namespace

ColumnLook LookOfColumn(int index, int col) {
    if (index == 0 && col < column::kCount) return kParameterColumns[static_cast<std::size_t>(col)];
    if (col == 0) return {.smallest = 48, .isCode = true, .isQuiet = true, .endsGroup = true};
    if (index == 2) return {.smallest = 48, .weight = 1};
    const bool isQuiet = col == chip_column::kProtocol || col == chip_column::kFile;
    const bool isCode = col == chip_column::kFile || col == chip_column::kDay || col >= chip_column::kCode;
    return {.smallest = 48, .weight = 1, .isCode = isCode, .isQuiet = isQuiet};
}

bool IsLeftToTheListBeside(int index, int col) { return index == kChipList && col <= chip_column::kClass; }

bool CanBeHidden(int index, int col) {
    return index == 0 && col >= column::kAddress && col <= column::kScaledValue;
}

Qt::Alignment AlignmentOf(const GridColumn& column) {
    if (column.alignment >= 6 && column.alignment <= 8) return Qt::AlignRight | Qt::AlignVCenter;
    if (column.alignment >= 3 && column.alignment <= 5) return Qt::AlignHCenter | Qt::AlignVCenter;
    return Qt::AlignLeft | Qt::AlignVCenter;
}

int SideOf(const GridColumn& column) {
    return static_cast<int>(AlignmentOf(column) & Qt::AlignHorizontal_Mask);
}

int FirstWidthOfColumn(int index, int col) { return LookOfColumn(index, col).smallest * kUnitsToThePixel; }

int WidthOf(const GridColumn& column) { return column.width / kUnitsToThePixel; }

}  // namespace commtest
