#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "controls/value_controls.h"
#include "runtime/text.h"

namespace commtest {

// Colours as blue-green-red words, and the one that stands for the window's own background.
using Colour = std::uint32_t;
inline constexpr Colour kWindowBackground = 0x80000005;
inline constexpr Colour kLightRed = 0xC0C0FF;

struct GridColumn {
    bool isLaidOut = false;  // the catalogue has a row for it
    int width = 0;           // in twentieths of a point
    int merge = 0;
    int alignment = 0;
};

// Rows by columns of text, row 0 holding the headings. The cells are the data model of the parameters. Rows
// and columns count from 0; a cell outside the grid raises error 9. `Row` and `Col` are the current cell, the
// user's; the polling's row is MainForm::CurrentRow.
class Grid : public Control {
  public:
    int Row = 0;
    int Col = 0;
    int TopRow = 1;      // first row below the headings that is in view
    bool Redraw = true;  // a flag, not a counter (Q75)

    // Moves on when the grid was emptied or has another size: what a view remembers of its cells is void.
    std::uint64_t Epoch() const { return epoch_; }

    int Rows() const { return rows_; }
    int Cols() const { return cols_; }

    // Cells that fall away are lost, new ones are empty.
    void SetSize(int rows, int cols);
    void SetRows(int rows) { SetSize(rows, cols_); }

    const Text& Cell(int row, int col) const { return cells_[IndexOf(row, col)]; }
    void SetCell(int row, int col, TextView text) {
        Text& cell = cells_[IndexOf(row, col)];
        if (cell != text) cell = text;  // while it polls, most values are the former ones
        MarkDirty();
    }

    // Empties every cell and takes the colours off; the size stays.
    void Clear();

    // Moves the current cell; error 9 outside the grid.
    void Select(int row, int col);

    // The window's background is a colour as any other: it is stored, and a cell keeps it until the grid is
    // emptied. A cell that was given none shows that background too.
    void SetCellColour(int row, int col, Colour colour);
    Colour CellColour(int row, int col) const;
    std::optional<Colour> GivenColour(int row, int col) const;
    const std::map<std::pair<int, int>, Colour>& Colours() const { return colours_; }  // given ones only

    GridColumn& Column(int col);
    const GridColumn& Column(int col) const;

  private:
    std::size_t IndexOf(int row, int col) const {
        const bool inside = row >= 0 && row < rows_ && col >= 0 && col < cols_;
        if (!inside) RaiseOutside();
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }
    [[noreturn]] static void RaiseOutside();

    std::uint64_t epoch_ = 0;
    int rows_ = 0;
    int cols_ = 0;
    std::vector<Text> cells_;
    std::vector<GridColumn> columns_;
    std::map<std::pair<int, int>, Colour> colours_;
};

}  // namespace commtest
