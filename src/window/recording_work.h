#pragma once

#include "window/deleted_pairs.h"
#include "window/recording_export.h"
#include "window/recording_import.h"

namespace commtest {

class GridView;

// What the window does with recordings beside the fixed entries of their menu: out into files, in from them,
// deleted ones back, and a word to those who are to choose one.
class RecordingWork : public QObject {
    Q_OBJECT

  public:
    // Boxes belong to the window of `place`, where they are listed.
    RecordingWork(Binder& binder, const Theme& theme, NoteBar& notes, QWidget& place);

    void AddToMenu(GridView& list);

    RecordingImport& Import() { return *import_; }

  private:
    DeletedPairs* deleted_;
    RecordingExport* export_;
    RecordingImport* import_;
};

}  // namespace commtest
