#pragma once

#include <array>
#include <vector>

#include "runtime/text.h"

namespace commtest {

class Grid;
struct ParameterRows;

// Columns of the parameter grid.
namespace column {
inline constexpr int kNumber = 0;       // 序号, "001 "
inline constexpr int kName = 1;         // 参数名称
inline constexpr int kAddress = 2;      // 地址; under code 12 a length character and three of address
inline constexpr int kLength = 3;       // 长度, in bytes; of a command row its command digit
inline constexpr int kAttribute = 4;    // 属性
inline constexpr int kDecimals = 5;     // 小数点: decimals, or the address of a decimals parameter
inline constexpr int kSingleRead = 6;   // RE 读值, raw code text
inline constexpr int kGroupRead = 7;    // RR/RD 读值, raw code text
inline constexpr int kValue = 8;        // 计算值
inline constexpr int kScaledValue = 9;  // 小数点修正值
inline constexpr int kNewValue = 10;    // 修改值
inline constexpr int kCount = 11;
}  // namespace column

inline constexpr TextView kCommandAddress = u"0000";  // rows with it are commands, not parameters

// Rows that follow each other.
struct RowSpan {
    int first;
    int last;

    friend bool operator==(const RowSpan&, const RowSpan&) = default;
};

// Rows of the grid, in the order in which they were added, as runs.
class RowSet {
  public:
    bool Holds(int row) const;
    void Add(int row);
    const std::vector<RowSpan>& Runs() const { return runs_; }

  private:
    std::vector<RowSpan> runs_;
};

// Index of the grid's last row.
int LastRow(const Grid& grid);

// Lays the parameter grid out after a selection: row numbers, FirstDataRow, headings, widths of the first two
// columns. A grid with fewer than 14 rows gets 13. The current cell becomes (0, 0).
void SetUpParameterGrid(ParameterRows& rows, const std::array<TextView, column::kCount>& headings);

// The scroll rule: a window of 14 rows follows CurrentRow, unless ConSelChange is ticked.
void KeepRowInView(ParameterRows& rows);

}  // namespace commtest
