#pragma once

#include <QHeaderView>
#include <array>

#include "session/grid_rows.h"
#include "window/tokens.h"

namespace commtest {

// The columns that never leave the view, number and name at its left edge and the new value at its right one.
// Where the columns do not fit they lie over the others, which scroll underneath. Places are pixels of the
// view, from its left edge.
class FrozenColumns {
  public:
    static constexpr std::array<int, 3> kColumns = {column::kNumber, column::kName, column::kNewValue};

    // A grid that is no parameter grid has none.
    FrozenColumns(const QHeaderView& header, bool hasThem) : header_(header), hasThem_(hasThem) {}

    // Nothing lies over anything where all columns fit, nor where no room would be left to scroll in.
    bool LieOver() const;
    bool Holds(int col) const;

    int LeftEdge() const;   // the first pixel behind the left ones; 0 where none lies over
    int RightEdge() const;  // the first pixel of the right one; the width where none lies over
    int PlaceOf(int col) const;

    // How far right of `x` the column that is seen there stands in the scrolled row of all columns.
    int ShiftAt(int x) const;

    // A line where something lies underneath.
    void PaintEdges(QPainter& painter, const Tokens& tokens) const;

  private:
    int Width() const { return header_.viewport()->width(); }
    int LeftWidth() const;
    int RightWidth() const { return header_.sectionSize(column::kNewValue); }
    int RightShift() const { return header_.length() - header_.offset() - Width(); }

    const QHeaderView& header_;
    bool hasThem_;
};

}  // namespace commtest
