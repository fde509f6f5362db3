#include "controls/grid.h"

#include <algorithm>

#include "runtime/runtime_error.h"

namespace commtest {

void Grid::SetSize(int rows, int cols) {
    if (rows == rows_ && cols == cols_) return;
    if (cols == cols_) {
        cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
    } else {
        std::vector<Text> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
        for (int row = 0; row < std::min(rows, rows_); ++row) {
            for (int col = 0; col < std::min(cols, cols_); ++col) {
                cells[static_cast<std::size_t>(row * cols + col)] = std::move(cells_[IndexOf(row, col)]);
            }
        }
        cells_ = std::move(cells);
        columns_.resize(static_cast<std::size_t>(cols));
    }
    rows_ = rows;
    cols_ = cols;
    std::erase_if(colours_, [this](const auto& entry) {
        return entry.first.first >= rows_ || entry.first.second >= cols_;
    });
    Row = std::min(Row, std::max(rows - 1, 0));
    Col = std::min(Col, std::max(cols - 1, 0));
    TopRow = std::clamp(TopRow, 1, std::max(rows - 1, 1));
    ++epoch_;
    MarkDirty();
}

void Grid::Clear() {
    std::fill(cells_.begin(), cells_.end(), Text());
    colours_.clear();
    ++epoch_;
    MarkDirty();
}

void Grid::Select(int row, int col) {
    IndexOf(row, col);
    Row = row;
    Col = col;
}

void Grid::SetCellColour(int row, int col, Colour colour) {
    IndexOf(row, col);
    colours_[{row, col}] = colour;
    MarkDirty();
}

Colour Grid::CellColour(int row, int col) const { return GivenColour(row, col).value_or(kWindowBackground); }

std::optional<Colour> Grid::GivenColour(int row, int col) const {
    const auto found = colours_.find({row, col});
    if (found == colours_.end()) return std::nullopt;
    return found->second;
}

GridColumn& Grid::Column(int col) {
    if (col < 0 || col >= cols_) RaiseOutside();
    return columns_[static_cast<std::size_t>(col)];
}

const GridColumn& Grid::Column(int col) const {
    if (col < 0 || col >= cols_) RaiseOutside();
    return columns_[static_cast<std::size_t>(col)];
}

void Grid::RaiseOutside() { throw RuntimeError(RuntimeError::kSubscript); }

}  // namespace commtest
