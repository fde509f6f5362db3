#include "catalogue/update_check.h"

#include <tuple>

#include "host/dialogs.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host/program_process.h"
#include "host/store.h"
#include "runtime/runtime_error.h"
#include "session/events.h"
#include "session/main_form.h"

namespace commtest {

namespace {

// Q170: seconds do not count.
auto WholeMinutes(const DateTime& time) {
    return std::tuple(time.year, time.month, time.day, time.hour, time.minute);
}

}  // namespace

bool IsUpdateNewer(const MainForm& form, const Text& folder, const Text& name) {
    const DateTime own = form.outside.program.FileTime(form.outside.program.OwnFile());
    const DateTime offered = form.outside.program.FileTime(folder + u"\\" + name + u".EXE");
    return WholeMinutes(offered) > WholeMinutes(own);
}

void LaunchUpdater(MainForm& form) {
    const Text updater = form.outside.files.PathOf(Text(kUpdaterFileName));
    try {
        form.outside.program.Start(updater);
    } catch (const RuntimeError&) {
        form.outside.dialogs.ShowNotice({Notice::Kind::NoUpdater, updater});
        return;
    }
    form.outside.store.Close();
    throw ProgramEnds();
}

void OfferUpdate(MainForm& form, const Text& folder, const Text& name) {
    if (!IsUpdateNewer(form, folder, name)) return;
    if (form.outside.dialogs.AskYesNo(u"本软件有一个最新的版本,您需要更新吗？")) LaunchUpdater(form);
}

}  // namespace commtest
