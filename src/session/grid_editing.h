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

// A scroll of a grid hides the cell editor.
void MSHFlexGrid1_Scroll(MainForm& form, int index);

// Enter writes the entry, Escape hides the editor, other keys pass. An entry that is no number ends the
// handler with error 13: nothing is sent or started.
void InputText_KeyDown(MainForm& form, int key);
void InputText_LostFocus(MainForm& form);

}  // namespace commtest
