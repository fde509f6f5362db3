#pragma once

namespace commtest {

class MainForm;

// The left button comes up over a grid, whose current cell has already moved there. Over the parameter grid
// ConCommString(0) then tells how the value of the row's code is reached: of the code in column 6 if that is
// the current one, else of that in column 7. A code of one character or none leaves the text as it is. Errors
// of the explainers.
void MSHFlexGrid1_MouseUp(MainForm& form, int index);

}  // namespace commtest
