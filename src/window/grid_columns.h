#pragma once

#include <Qt>

#include "controls/grid.h"

namespace commtest {

// How a column of a grid looks.
struct ColumnLook {
    int smallest = 60;  // width in logical pixels
    int weight = 0;     // its part of the width that is left over
    bool isCode = false;
    bool isQuiet = false;
    bool endsGroup = false;  // a hairline stands at its right
};

// The look of column `col`, from 0, of MSHFlexGrid1(index).
ColumnLook LookOfColumn(int index, int col);

// The chip list stands beside the catalogue list, which numbers the instruments and has their protocols and
// classes.
bool IsLeftToTheListBeside(int index, int col);

// Number, name and new value always stand; of a list, every column.
bool CanBeHidden(int index, int col);

// Where the texts of a column stand, in the grid's own numbers: 0 to 2 left, 3 to 5 centred, 6 to 8 right.
Qt::Alignment AlignmentOf(const GridColumn& column);

// Its horizontal part alone, for a line that has its height already.
int SideOf(const GridColumn& column);

// The width of a column to which no catalogue has given one, in the grid's units.
int FirstWidthOfColumn(int index, int col);

// The width that the catalogue gives to a column, in logical pixels.
int WidthOf(const GridColumn& column);

}  // namespace commtest
