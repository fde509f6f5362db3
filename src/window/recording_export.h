#pragma once

#include <QObject>

#include "window/binder.h"
#include "window/note_bar.h"

namespace commtest {

// A recording of the list goes into a file.
class RecordingExport : public QObject {
    Q_OBJECT

  public:
    // `list` shows the recordings and owns this.
    RecordingExport(Binder& binder, NoteBar& notes, QWidget& list);

    // Asks where that row of the list, from 1, is to go. A file that is there already is written over when
    // the user wants it.
    void AskForFile(int row);

    // Writes the recording whole or not at all, and says so.
    void SaveTo(const QString& path, const Text& instrument, const Text& note);

  private:
    void Save(const QString& path, const Text& instrument, const Text& note);

    Binder& binder_;
    NoteBar& notes_;
    QWidget& list_;
};

// The name that is proposed for its file: what no file system likes in it is "_", and it is not too long.
QString FileNameOfRecording(const Text& instrument, const Text& note);

}  // namespace commtest
