#pragma once

#include <QSettings>
#include <QSplitter>
#include <QWidget>

#include "commissioning/write_watch.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class CommunicationStrip;
class GridView;
class NoteBar;
class RecordView;

// Tab 0: the parameter grid over the strip, the two panes and the statistics.
class CommunicationPage : public QWidget {
    Q_OBJECT

  public:
    CommunicationPage(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* parent);

    GridView& Parameters() { return *grid_; }
    CommunicationStrip& Strip() { return *strip_; }
    RecordView& Record() { return *record_; }
    void FocusCellEditor();

    void SaveState(QSettings& settings) const;
    void RestoreState(const QSettings& settings);

  private:
    QWidget* MakeLowerHalf(Binder& binder, const Theme& theme);

    WriteWatch writes_;
    GridView* grid_;
    class CellEditor* editor_;
    CommunicationStrip* strip_ = nullptr;
    RecordView* record_ = nullptr;
    QSplitter* halves_;
    QSplitter* panes_ = nullptr;
};

}  // namespace commtest
