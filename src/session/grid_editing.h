#pragma once

namespace commtest {

class MainForm;

namespace key {
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
}  // namespace key

// A click on a grid, whose current cell has already moved there. Grid 0: picks the row to read, opens the
// cell editor over column 10, or hides it. Grids 1 and 2: choose the instrument or the recording of the row.
// Grid 3: shows the chip record.
void MSHFlexGrid1_Click(MainForm& form, int index);

// A double click on grid 1 or 2, behind its click: the choice of the row's instrument or recording runs
// again; grid 1 asks for the focus.
void MSHFlexGrid1_DblClick(MainForm& form, int index);

// A scroll of a grid hides the cell editor.
void MSHFlexGrid1_Scroll(MainForm& form, int index);

// One step of the wheel moves a grid by one row: down with a delta below 1, else up. TopRow stays between row
// 1 and the last row.
void Obj_MouseWheel(MainForm& form, int index, int delta);

// Enter writes the entry, Escape hides the editor, other keys pass. An entry that is no number ends the
// handler with error 13: nothing is sent or started.
void InputText_KeyDown(MainForm& form, int key);
void InputText_LostFocus(MainForm& form);

}  // namespace commtest
