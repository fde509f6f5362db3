#pragma once

namespace commtest {

class MainForm;

// The parameter grid when nothing fills it: fifteen numbered rows under the headings.
void LayOutEmptyGrid(MainForm& form);

// From now on an instrument whose parameters cannot be read leaves the one chosen before it, with its rows
// and limits; without one before, the empty grid. The run-time error passes through.
void KeepPictureOverFailures(MainForm& form);

}  // namespace commtest
