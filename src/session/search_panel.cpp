#include "session/search_panel.h"

#include "session/main_form.h"
#include "session/polling_cycle.h"

namespace commtest {

void FindMeter_Click(MainForm& form, int index) {
    if (index == 0) form.FindFrame.SetVisible(false);
    if (index != 1) return;
    StopInShortWay(form);
    form.companions.FindCommMeter(form);
}

}  // namespace commtest
