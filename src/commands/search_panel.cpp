#include "commands/search_panel.h"

#include "search/instrument_search.h"
#include "session/main_form.h"
#include "session/start_stop.h"

namespace commtest {

void FindMeter_Click(MainForm& form, int index) {
    if (index == 0) form.FindFrame.SetVisible(false);
    if (index != 1) return;
    StopInShortWay(form, StopCause::Search);
    FindCommMeter(form);
}

}  // namespace commtest
