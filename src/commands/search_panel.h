#pragma once

namespace commtest {

class MainForm;

// Buttons of the search panel: 0 hides it, and a search goes on behind it; 1 begins the search, a running
// session is stopped for it without button 4.
void FindMeter_Click(MainForm& form, int index);

}  // namespace commtest
