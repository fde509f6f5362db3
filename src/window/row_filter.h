#pragma once

#include <QString>

#include "controls/grid.h"

namespace commtest {

// Which rows of MSHFlexGrid1(index) the user wants to see: those that hold certain words, of the parameters
// in name, address or attribute, of a list in any column. Small and capital letters are the same. It shows or
// hides nothing itself. Rows count from 1.
class RowFilter {
  public:
    RowFilter(const Grid& grid, int index) : grid_(grid), index_(index) {}

    void LookFor(const QString& words) { words_ = words.trimmed(); }
    const QString& Words() const { return words_; }
    bool IsOn() const { return !words_.isEmpty(); }

    bool Fits(int row) const;
    int CountOfFitting() const;
    int CountOfRows() const;  // that hold something to look in

    // Where the words begin in the text of a cell, from 0; -1 if they are not there.
    qsizetype HitIn(int col, const QString& text) const;

  private:
    bool LooksIn(int col) const;
    bool HoldsSomething(int row) const;

    const Grid& grid_;
    int index_;
    QString words_;
};

}  // namespace commtest
