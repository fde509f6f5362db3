#pragma once

namespace commtest {

class MainForm;

// A click on a grid, whose current cell has already moved there. Grid 0 is the parameter grid. Grids 1 and 2:
// choose the instrument or the recording of the row. Grid 3: shows the chip record.
void MSHFlexGrid1_Click(MainForm& form, int index);

// A double click on grid 1 or 2, behind its click: the choice of the row's instrument or recording runs
// again; grid 1 asks for the focus.
void MSHFlexGrid1_DblClick(MainForm& form, int index);

}  // namespace commtest
