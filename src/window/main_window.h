#pragma once

#include <QMainWindow>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>

#include "window/binder.h"
#include "window/theme.h"
#include "window/wheel_guard.h"

namespace commtest {

class CataloguePage;
class ClearedCounters;
class CommunicationPage;
class GridView;
class GuideKey;
class LateView;
class ListWork;
class NoteBar;
class PortReturn;
class RecordingWork;
class Sidebar;
class StateLine;
class TabRow;
class ToolBar;
class WorkBand;

// CommConnect: the window over a session.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    // Sizes, widths and the choice of the palette are remembered in `settings`, in the section "Window".
    MainWindow(MainForm& form, Theme& theme, QSettings& settings);
    ~MainWindow() override;

    Binder& Views() { return binder_; }
    NoteBar& Notes() { return *notes_; }
    PortReturn& LostPort() { return *lostPort_; }
    StateLine& State();
    GuideKey& Guide() { return *guide_; }
    ListWork& Lists() { return *lists_; }
    Sidebar& LeftSide() { return *sidebar_; }
    void SaveState();

    // Until the first exchange of all, if there was none yet; `tryOut` polls the simulated instrument.
    void ShowFirstSteps(std::function<void()> tryOut);

    // Takes the place of a first start in that free area of a screen. Contents that it is too small for
    // scroll.
    void FitInto(const QRect& free);

  signals:
    void ListMade(GridView& list);  // of the catalogue; a list is made when its page is first seen

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeCentre();
    QWidget* MakeMainArea();
    QWidget* MakePages();
    QWidget* MakeSearch(QWidget* place);
    QWidget* MakePorts(QWidget* place);
    QWidget* MakeCatalogue(QWidget* place);
    QWidget* MakeRecordings(QWidget* place);
    QWidget* MakeErrors(QWidget* place);
    void ServeStatistics(QWidget& page);
    void ServeFilter();
    void RestoreState();
    void RestoreColumns(QWidget& page);
    void TakeLists(QWidget& page);
    void FollowFocus();
    void AddShortcuts();
    QShortcut* AddKey(const QKeySequence& keys, std::function<void()> action);
    void AddKeyOfEachWindow(const QKeySequence& keys, std::function<void()> action);
    void BringPage(int tab);
    void BringSearch();
    void MoveToArea(int step);
    void FocusInto(QWidget* area);
    void SwitchPalette();
    QStringList Said();

    void Adapt();
    void AdaptMainArea();
    void FitRows(QWidget& page);
    void ToggleSidebar();
    void ShowSidebar(bool shown);
    void LaySidebarOver(bool over);
    void LeaveFields();

    MainForm& form_;
    Theme& theme_;
    QSettings& settings_;
    Binder binder_;
    WheelGuard wheelGuard_;

    NoteBar* notes_;
    PortReturn* lostPort_ = nullptr;
    ToolBar* toolBar_;
    Sidebar* sidebar_;
    QSplitter* columns_;
    QWidget* mainArea_ = nullptr;
    TabRow* tabRow_ = nullptr;
    WorkBand* workBand_ = nullptr;
    LateView* search_ = nullptr;
    ClearedCounters* clearedCounters_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    CommunicationPage* communication_ = nullptr;
    CataloguePage* catalogue_ = nullptr;  // once it has been seen
    RecordingWork* recordingWork_ = nullptr;
    ListWork* lists_ = nullptr;
    GuideKey* guide_ = nullptr;
    bool wantsSidebar_ = true;      // the user's choice in a window that is wide enough
    bool sidebarLiesOver_ = false;  // it lies over the main area
    QByteArray besideState_;        // of the columns, while it does
    bool isNarrow_ = false;
};

}  // namespace commtest
