#pragma once

#include <QByteArray>
#include <QObject>

#include "app/recording_addition.h"
#include "window/binder.h"
#include "window/deleted_pairs.h"
#include "window/note_bar.h"
#include "window/theme.h"

namespace commtest {

// A recording comes in from a file, all of it or nothing.
class RecordingImport : public QObject {
    Q_OBJECT

  public:
    // `list` shows the recordings and owns this.
    RecordingImport(Binder& binder, const Theme& theme, NoteBar& notes, DeletedPairs& deleted, QWidget& list);

    void AskForFile();

    // Asks before it adds to a note that the instrument has already. What is known is left out and counted;
    // the list shows the result. A file that is no recording is refused in a box that names the line.
    void Take(const QString& path);

  private:
    struct Source {
        QString name;  // of the file
        QByteArray bytes;
    };
    void Begin(const Source& source);
    RecordingAddition AdditionOfSource(const Source& source) const;
    void Ask(const Source& source, const RecordingAddition& addition);
    void Add(const RecordingAddition& addition);
    void ShowInList(const RecordingAddition& addition);
    void Guard(const Source& source, const std::function<void()>& step);
    void Refuse(const QString& reason);

    Binder& binder_;
    const Theme& theme_;
    NoteBar& notes_;
    DeletedPairs& deleted_;
    QWidget& list_;
};

}  // namespace commtest
