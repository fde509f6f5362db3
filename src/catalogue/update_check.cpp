#include "catalogue/update_check.h"

#include <tuple>

#include "host/file_names.h"
#include "runtime/runtime_error.h"
#include "session/events.h"
#include "session/main_form.h"

namespace commtest {

namespace {

auto WholeMinutes(const DateTime& time) {
    return std::tuple(time.year, time.month, time.day, time.hour, time.minute);
}

}  // namespace

bool IsUpdateNewer(const MainForm& form, const Text& folder, const Text& name) {
    const DateTime own = form.program.FileTime(form.program.OwnFile());
    const DateTime offered = form.program.FileTime(folder + u"\\" + name + u".EXE");
    return WholeMinutes(offered) > WholeMinutes(own);
}

void LaunchUpdater(MainForm& form) {
    const Text updater = form.files.PathOf(Text(kUpdaterFileName));
    try {
        form.program.Start(updater);
    } catch (const RuntimeError&) {
        form.dialogs.ShowMessage(u"更新程序不能启动！",
                                 updater + u" 不存在或不能运行。现在继续使用本版本，请联系管理员更新");
        return;
    }
    form.store.Close();
    throw ProgramEnds();
}

void OfferUpdate(MainForm& form, const Text& folder, const Text& name) {
    if (!IsUpdateNewer(form, folder, name)) return;
    if (form.dialogs.AskYesNo(u"本软件有一个最新的版本,您需要更新吗？")) LaunchUpdater(form);
}

}  // namespace commtest
