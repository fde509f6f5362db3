#pragma once

namespace commtest {

class MainForm;

namespace key {
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
}  // namespace key

// A click on the parameter grid, whose current cell has already moved there: picks the row to read, opens the
// cell editor over column 10, or hides it.
void ClickParameterGrid(MainForm& form);

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
