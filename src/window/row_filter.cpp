#include "window/row_filter.h"

#include "session/grid_rows.h"

namespace commtest {

bool RowFilter::LooksIn(int col) const {
    if (index_ != 0) return col > 0;
    return col == column::kName || col == column::kAddress || col == column::kAttribute;
}

bool RowFilter::HoldsSomething(int row) const {
    for (int col = 0; col < grid_.Cols(); ++col) {
        if (LooksIn(col) && !grid_.Cell(row, col).empty()) return true;
    }
    return false;
}

bool RowFilter::Fits(int row) const {
    if (!IsOn()) return true;
    for (int col = 0; col < grid_.Cols(); ++col) {
        if (HitIn(col, QString::fromStdU16String(grid_.Cell(row, col))) >= 0) return true;
    }
    return false;
}

int RowFilter::CountOfFitting() const {
    int count = 0;
    for (int row = 1; row < grid_.Rows(); ++row) count += Fits(row);
    return count;
}

int RowFilter::CountOfRows() const {
    int count = 0;
    for (int row = 1; row < grid_.Rows(); ++row) count += HoldsSomething(row);
    return count;
}

qsizetype RowFilter::HitIn(int col, const QString& text) const {
    return IsOn() && LooksIn(col) ? text.indexOf(words_, 0, Qt::CaseInsensitive) : -1;
}

}  // namespace commtest
