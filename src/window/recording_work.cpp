#include "window/recording_work.h"

#include "window/grid_view.h"
#include "window/replay_hint.h"

namespace commtest {

using namespace Qt::StringLiterals;

RecordingWork::RecordingWork(Binder& binder, const Theme& theme, NoteBar& notes, QWidget& place)
    : QObject(&place),
      deleted_(new DeletedPairs(binder, notes, this)),
      export_(new RecordingExport(binder, notes, place)),
      import_(new RecordingImport(binder, theme, notes, *deleted_, place)) {
    new ReplayHint(binder, notes, this);
}

void RecordingWork::AddToMenu(GridView& list) {
    list.AddToMenu({{u"导出录制......"_s, true, [this](int row) { export_->AskForFile(row); }},
                    {u"导入录制......"_s, false, [this](int) { import_->AskForFile(); }}});
}

}  // namespace commtest
