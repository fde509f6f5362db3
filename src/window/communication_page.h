#pragma once

#include <QSettings>
#include <QSplitter>
#include <QWidget>
#include <functional>

#include "commissioning/write_watch.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class CommunicationStrip;
class FirstSteps;
class GridView;
class HitList;
class NoteBar;
class RecordView;
class SidePane;

// Tab 0: the parameter grid over the strip, the two panes and the statistics.
class CommunicationPage : public QWidget {
    Q_OBJECT

  public:
    CommunicationPage(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* parent);

    GridView& Parameters() { return *grid_; }
    CommunicationStrip& Strip() { return *strip_; }
    RecordView& Record() { return *record_; }
    QWidget& AreaUnderStrip();  // the record, or the first field of what stands in its place
    void FocusCellEditor();

    // They stand in place of the conversions while a search is on.
    void ShowHits(HitList& hits);

    // The steps to the first exchange stand in place of the record and the conversion while `stand` holds.
    FirstSteps& ShowFirstSteps(Binder& binder, const Theme& theme, std::function<bool()> stand);

    void SaveState(QSettings& settings) const;
    void RestoreState(const QSettings& settings);

  private:
    QWidget* MakeLowerHalf(Binder& binder, const Theme& theme);

    WriteWatch writes_;
    GridView* grid_;
    class CellEditor* editor_;
    CommunicationStrip* strip_ = nullptr;
    FirstSteps* steps_ = nullptr;
    RecordView* record_ = nullptr;
    SidePane* side_ = nullptr;
    QSplitter* halves_;
    QSplitter* panes_ = nullptr;
};

}  // namespace commtest
