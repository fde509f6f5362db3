#include "window/recording_work.h"

#include "host_qt/words.h"
#include "window/grid_view.h"
#include "window/replay_hint.h"

namespace commtest {

RecordingWork::RecordingWork(Binder& binder, const Theme& theme, NoteBar& notes, QWidget& place)
    : QObject(&place),
      deleted_(new DeletedPairs(binder, notes, this)),
      export_(new RecordingExport(binder, notes, place)),
      import_(new RecordingImport(binder, theme, notes, *deleted_, place)) {
    new ReplayHint(binder, notes, this);
}

void RecordingWork::AddToMenu(GridView& list) {
    list.AddToMenu({{Words::tr("导出录制......"), true, [this](int row) { export_->AskForFile(row); }},
                    {Words::tr("导入录制......"), false, [this](int) { import_->AskForFile(); }}});
}

}  // namespace commtest
