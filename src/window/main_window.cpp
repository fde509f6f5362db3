#include "window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <array>

#include "commands/startup.h"
#include "commands/toolbar_commands.h"
#include "host/store.h"
#include "host_qt/words.h"
#include "session/records.h"
#include "window/bindings.h"
#include "window/catalogue_page.h"
#include "window/cleared_counters.h"
#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/emptied_record.h"
#include "window/empty_pages.h"
#include "window/error_page.h"
#include "window/face_choice.h"
#include "window/filter_box.h"
#include "window/first_geometry.h"
#include "window/first_steps.h"
#include "window/follow_tick.h"
#include "window/grid_view.h"
#include "window/guide_key.h"
#include "window/hit_list.h"
#include "window/late_view.h"
#include "window/list_work.h"
#include "window/note_bar.h"
#include "window/port_page.h"
#include "window/port_return.h"
#include "window/record_view.h"
#include "window/recording_work.h"
#include "window/search_panel.h"
#include "window/sidebar.h"
#include "window/statistics_label.h"
#include "window/status_panels.h"
#include "window/stop_line.h"
#include "window/tab_row.h"
#include "window/tool_bar.h"
#include "window/window_face.h"
#include "window/work_band.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStatusBarHeight = 24;
constexpr int kHandleWidth = 5;
constexpr int kNarrowestMainArea = 715;
const QList<int> kFirstColumns = {Sidebar::kFirstWidth, kFirstSize.width() - Sidebar::kFirstWidth};

// Widths of the window below which it gives up something.
constexpr int kWithCaptions = 1180;  // of the toolbar
constexpr int kWithSidebar = 1100;
constexpr int kSidebarBeside = 952;  // below, it lies over the main area
constexpr int kRoomyHeight = 800;
constexpr int kLowHeight = 560;

constexpr int kCatalogueTab = 2;
constexpr int kRecordingsTab = 3;
constexpr int kAreas = 4;  // sidebar, page, strip, record

// The page itself, if it is one, and those in it.
QList<GridView*> GridsOf(QWidget& page) {
    QList<GridView*> grids = page.findChildren<GridView*>();
    if (auto* const grid = qobject_cast<GridView*>(&page)) grids += grid;
    return grids;
}

QString ColumnsKey(const GridView& grid) { return u"Columns%1"_s.arg(grid.Index()); }

}  // namespace

MainWindow::MainWindow(MainForm& form, Theme& theme, QSettings& settings)
    : form_(form),
      theme_(theme),
      settings_(settings),
      binder_(form),
      notes_(new NoteBar(theme, this)),
      toolBar_(new ToolBar(binder_, theme, this)),
      sidebar_(new Sidebar(binder_, *notes_, this)),
      columns_(new QSplitter(Qt::Horizontal, this)) {
    setWindowIcon(QIcon(u":/icons/app.svg"_s));
    setCentralWidget(MakeCentre());
    setStatusBar(new StatusPanels(binder_, *notes_, this));
    binder_.Watch(form_.Caption,
                  [this] { setWindowTitle(QString::fromStdU16String(form_.Caption.Value())); });
    connect(toolBar_, &ToolBar::OperationMenuWanted, this, [this] {
        constexpr QPoint kPlace(400, 400);
        communication_->Parameters().PopUpMenu(mapToGlobal(kPlace));
    });
    connect(&tabRow_->SidebarButton(), &QToolButton::clicked, this, &MainWindow::ToggleSidebar);
    tabRow_->Follow().AskForReason([this] { return communication_->Parameters().Holds(); });
    lostPort_ = new PortReturn(binder_, communication_->Strip().State(), *notes_, this);
    lists_ = new ListWork({binder_,
                           theme_,
                           *notes_,
                           *workBand_,
                           *toolBar_,
                           *sidebar_,
                           tabRow_->Tabs(),
                           {pages_->widget(kCatalogueTab), pages_->widget(kRecordingsTab)},
                           *this});
    AddFaceChoice(form_, *toolBar_, settings_, *notes_);
    guide_ =
        new GuideKey(theme_, FaceOf(form_).guide.toString(), settings_, *this, [this] { return Said(); });
    AddShortcuts();
    FitInto(screen()->availableGeometry());
    RestoreState();
    FollowFocus();
    qApp->installEventFilter(this);
    Adapt();
}

// A field that dies with the focus would be left while the views go.
MainWindow::~MainWindow() {
    if (QWidget* focus = focusWidget()) focus->clearFocus();
}

void MainWindow::ShowFirstSteps(std::function<void()> tryOut) {
    const QString key = u"Window/HasExchanged"_s;
    if (settings_.value(key).toBool()) return;
    FirstSteps& steps =
        communication_->ShowFirstSteps(binder_, theme_, [this, key, hasExchanged = false]() mutable {
            if (!hasExchanged && !form_.Record().Blocks().empty()) {
                hasExchanged = true;
                settings_.setValue(key, true);
            }
            return !hasExchanged && form_.outside.store.IsOpen();
        });
    connect(&steps, &FirstSteps::PortPageWanted, this, [this] { BringPage(1); });
    connect(&steps, &FirstSteps::SearchWanted, this, &MainWindow::BringSearch);
    connect(&steps, &FirstSteps::StartWanted, this,
            [this] { binder_.Event([this] { RunToolbarCommand(form_, toolbar::kStartStop); }); });
    connect(&steps, &FirstSteps::SimulatorWanted, this, [this, tryOut = std::move(tryOut)] {
        lists_->Wait().Stands() ? notes_->Say(lists_->Wait().Reason()) : tryOut();
    });
    if (form_.outside.store.IsOpen()) notes_->Say(Words::tr("欢迎使用：按三步开始，F1 看使用说明"));
}

StateLine& MainWindow::State() { return communication_->Strip().State(); }

QWidget* MainWindow::MakeCentre() {
    columns_->setHandleWidth(kHandleWidth);
    columns_->addWidget(sidebar_);
    columns_->addWidget(MakeMainArea());
    columns_->setStretchFactor(0, 0);
    columns_->setStretchFactor(1, 1);
    columns_->setCollapsible(1, false);
    columns_->setSizes(kFirstColumns);
    auto* centre = new QWidget;
    centre->setMinimumSize(kSmallestContents - QSize(0, kStatusBarHeight));
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(toolBar_);
    layout->addWidget(columns_, 1);
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(centre);
    return scroll;
}

void MainWindow::FitInto(const QRect& free) {
    const FirstGeometry first = FirstGeometryIn(free);
    setMinimumSize(first.smallest);
    setGeometry(first.place);
}

QWidget* MainWindow::MakeMainArea() {
    mainArea_ = new QWidget(this);
    mainArea_->setMinimumWidth(kNarrowestMainArea);
    auto* layout = new QVBoxLayout(mainArea_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    tabRow_ = new TabRow(binder_, theme_, mainArea_);
    workBand_ = new WorkBand(mainArea_);
    search_ = new LateView([this](QWidget* place) { return MakeSearch(place); }, mainArea_);
    BindPresence(binder_, form_.FindFrame, *search_);
    layout->addWidget(tabRow_);
    layout->addWidget(workBand_);
    layout->addWidget(search_);
    layout->addWidget(MakePages(), 1);
    return mainArea_;
}

QWidget* MainWindow::MakePages() {
    pages_ = new QStackedWidget(mainArea_);
    communication_ = new CommunicationPage(binder_, theme_, *notes_, pages_);
    new StopLine(binder_, communication_->Strip().State(), communication_->Record());
    new EmptiedRecord(binder_, *notes_, communication_->Record());
    clearedCounters_ = new ClearedCounters(binder_, *notes_, pages_);
    ServeStatistics(*communication_);
    pages_->addWidget(communication_);
    for (const auto make : {&MainWindow::MakePorts, &MainWindow::MakeCatalogue, &MainWindow::MakeRecordings,
                            &MainWindow::MakeErrors})
        pages_->addWidget(
            new LateView([this, make](QWidget* place) { return (this->*make)(place); }, pages_));
    recordingWork_ = new RecordingWork(binder_, theme_, *notes_, *pages_->widget(kRecordingsTab));
    binder_.Watch(form_.SSTab2, [this] {
        pages_->setCurrentIndex(form_.SSTab2.Chosen());
        ServeFilter();
    });
    return pages_;
}

QWidget* MainWindow::MakeSearch(QWidget* place) {
    auto* panel = new SearchPanel(binder_, theme_, place);
    communication_->ShowHits(*new HitList(binder_, theme_, *notes_, panel->WayBack(), communication_));
    return panel;
}

QWidget* MainWindow::MakePorts(QWidget* place) { return new PortPage(binder_, theme_, place); }

QWidget* MainWindow::MakeCatalogue(QWidget* place) {
    catalogue_ = new CataloguePage(binder_, theme_, place);
    AddEmptyCatalogueState(binder_, theme_, catalogue_->List(),
                           {[this] { lists_->Import().Begin(); }, [this] { lists_->Restore().Ask(); }});
    TakeLists(*catalogue_);
    return catalogue_;
}

QWidget* MainWindow::MakeRecordings(QWidget* place) {
    auto* recordings = new GridView(binder_, theme_, 2, place);
    recordingWork_->AddToMenu(*recordings);
    AddEmptyRecordingsState(binder_, theme_, *recordings, [this] { recordingWork_->Import().AskForFile(); });
    TakeLists(*recordings);
    return recordings;
}

QWidget* MainWindow::MakeErrors(QWidget* place) {
    auto* page = new ErrorPage(binder_, theme_, *notes_, place);
    ServeStatistics(*page);
    return page;
}

void MainWindow::TakeLists(QWidget& page) {
    RestoreColumns(page);
    FitRows(page);
    for (GridView* list : GridsOf(page)) emit ListMade(*list);
}

void MainWindow::ServeStatistics(QWidget& page) {
    for (StatisticsLabel* label : page.findChildren<StatisticsLabel*>()) clearedCounters_->Serve(*label);
}

void MainWindow::ServeFilter() {
    const QWidget* page = pages_->widget(form_.SSTab2.Chosen());
    GridView* grid = nullptr;
    if (page == communication_) grid = &communication_->Parameters();
    if (catalogue_ != nullptr && page->isAncestorOf(catalogue_)) grid = &catalogue_->List();
    tabRow_->Filter().Serve(grid);
}

// --- What is remembered ---

void MainWindow::SaveState() {
    settings_.beginGroup(u"Window"_s);
    settings_.setValue(u"Geometry"_s, saveGeometry());
    settings_.setValue(u"Sidebar"_s, wantsSidebar_);
    settings_.setValue(u"SidebarSplitter"_s, sidebarLiesOver_ ? besideState_ : columns_->saveState());
    communication_->SaveState(settings_);
    for (const GridView* grid : pages_->findChildren<GridView*>())
        settings_.setValue(ColumnsKey(*grid), grid->SaveWidths());
    settings_.endGroup();
    settings_.sync();
}

void MainWindow::RestoreState() {
    settings_.beginGroup(u"Window"_s);
    restoreGeometry(settings_.value(u"Geometry"_s).toByteArray());
    wantsSidebar_ = settings_.value(u"Sidebar"_s, true).toBool();
    columns_->restoreState(settings_.value(u"SidebarSplitter"_s).toByteArray());
    communication_->RestoreState(settings_);
    settings_.endGroup();
    RestoreColumns(*communication_);
}

void MainWindow::RestoreColumns(QWidget& page) {
    for (GridView* grid : GridsOf(page))
        grid->RestoreWidths(settings_.value(u"Window/"_s + ColumnsKey(*grid)).toByteArray());
}

// --- What is said ---

// The passing word, and the failure on the state line.
QStringList MainWindow::Said() {
    QStringList said;
    if (!notes_->Text().isEmpty()) said += notes_->Text();
    const StateMessage& state = State().Shown();
    if (State().isVisible() && state.look == StateMessage::Look::Failure) said += state.text;
    return said;
}

// --- Focus and keys ---

void MainWindow::FollowFocus() {
    binder_.Watch(form_.Focus, [this] {
        using enum FocusWish::Target;
        switch (form_.Focus.Wanted()) {
            case ParameterGrid: communication_->Parameters().setFocus(); break;
            case CatalogueGrid:
                if (catalogue_ != nullptr) catalogue_->List().setFocus();
                break;
            case CellEditor: communication_->FocusCellEditor(); break;
            case Address: sidebar_->findChild<QWidget*>(u"ConMeterAddr"_s)->setFocus(); break;
            case None: break;
        }
    });
}

QShortcut* MainWindow::AddKey(const QKeySequence& keys, std::function<void()> action) {
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, std::move(action));
    return shortcut;
}

void MainWindow::AddKeyOfEachWindow(const QKeySequence& keys, std::function<void()> action) {
    AddKey(keys, std::move(action))->setContext(Qt::ApplicationShortcut);
}

void MainWindow::AddShortcuts() {
    const auto press = [this](int index) {
        LeaveFields();
        toolBar_->Press(index);
    };
    AddKeyOfEachWindow(Qt::Key_F5, [press] { press(toolbar::kStartStop); });
    AddKey(Qt::CTRL | Qt::Key_F, [this] { BringSearch(); });
    AddKey(Qt::CTRL | Qt::SHIFT | Qt::Key_F, [this] { tabRow_->Filter().TakeFocus(); });
    AddKey(Qt::CTRL | Qt::Key_I, [press] { press(toolbar::kImport); });
    AddKeyOfEachWindow(Qt::CTRL | Qt::Key_Q, [press] { press(toolbar::kLeave); });
    AddKey(Qt::CTRL | Qt::Key_E, [this] {
        QToolButton& button = toolBar_->Button(8);
        if (button.isEnabled()) button.menu()->popup(button.mapToGlobal(QPoint(0, button.height())));
    });
    AddKeyOfEachWindow(Qt::CTRL | Qt::Key_T,
                       [this] { toolBar_->Entry(ToolbarEntry::ToolWindow)->trigger(); });
    for (int tab = 0; tab < pages_->count(); ++tab) {
        AddKey(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + tab)),
               [this, tab] { BringPage(tab); });
    }
    AddKey(Qt::Key_F6, [this] { MoveToArea(1); });
    AddKey(Qt::SHIFT | Qt::Key_F6, [this] { MoveToArea(-1); });
    AddKey(Qt::Key_F8, [this] { binder_.Event([this] { ConShowCommand_Click(form_); }); });
    AddKey(Qt::Key_F9, [this] { ToggleSidebar(); });
    AddKey(Qt::CTRL | Qt::Key_Z, [this] { notes_->TakeOffer(); });
    AddKey(Qt::CTRL | Qt::SHIFT | Qt::Key_L, [this] { SwitchPalette(); });
}

void MainWindow::BringPage(int tab) {
    if (!tabRow_->Tabs().isTabEnabled(tab)) {
        notes_->Say(lists_->Wait().Reason());
        return;
    }
    binder_.Event([this, tab] { form_.SSTab2.Choose(tab); });
    FocusInto(pages_->currentWidget());
}

void MainWindow::BringSearch() {
    LeaveFields();
    binder_.Event([this] { RunToolbarCommand(form_, toolbar::kSearch); });
    if (form_.FindFrame.Visible()) FocusInto(search_);
}

// A field of the port page takes effect when it is left; a key that starts the session does not leave it,
// nor does the end of the program. Only once: while the session runs, the port is closed and opened for it.
void MainWindow::LeaveFields() {
    const QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && pages_->widget(1)->isAncestorOf(focus)) tabRow_->Tabs().setFocus();
}

void MainWindow::MoveToArea(int step) {
    const std::array<QWidget*, kAreas> areas = {sidebar_->widget(), pages_->currentWidget(),
                                                &communication_->Strip(), &communication_->AreaUnderStrip()};
    const QWidget* focus = QApplication::focusWidget();
    int area = step > 0 ? kAreas - 1 : 0;
    for (int index = 0; index < kAreas; ++index) {
        QWidget* candidate = areas[static_cast<std::size_t>(index)];
        if (focus != nullptr && (candidate == focus || candidate->isAncestorOf(focus))) area = index;
    }
    for (int turn = 0; turn < kAreas; ++turn) {
        area = (area + step + kAreas) % kAreas;
        QWidget* wanted = areas[static_cast<std::size_t>(area)];
        if (!wanted->isVisible()) continue;
        FocusInto(wanted);
        return;
    }
}

// The first field of an area; of the first page, the grid.
void MainWindow::FocusInto(QWidget* area) {
    QWidget* wanted = area == communication_ ? &communication_->Parameters() : area;
    const auto takesFocus = [](const QWidget& widget) {
        return widget.focusPolicy() != Qt::NoFocus && widget.isVisible() && widget.isEnabled();
    };
    while (!takesFocus(*wanted)) wanted = wanted->nextInFocusChain();
    wanted->setFocus(Qt::TabFocusReason);
}

void MainWindow::SwitchPalette() {
    const bool toDark = !theme_.IsDark();
    theme_.Use(toDark ? Theme::Choice::Dark : Theme::Choice::Light);
    settings_.setValue(u"Window/Theme"_s, toDark ? u"dark"_s : u"light"_s);
}

// --- Small windows ---

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (communication_ != nullptr) Adapt();  // a picture may be taken of a page while the others are made
}

void MainWindow::Adapt() {
    toolBar_->SetCompact(width() < kWithCaptions);
    sidebar_->SetOptionHeight(height() >= kRoomyHeight ? 24 : 20);
    FitRows(*pages_);
    communication_->Strip().SetLow(height() < kLowHeight);
    isNarrow_ = width() < kWithSidebar;
    ShowSidebar(!isNarrow_ && wantsSidebar_);
}

void MainWindow::FitRows(QWidget& page) {
    for (GridView* grid : GridsOf(page)) grid->SetRowHeight(height() >= kRoomyHeight ? 24 : 22);
}

void MainWindow::AdaptMainArea() {
    communication_->Strip().SetCompact(mainArea_->width() < CommunicationStrip::kOneLineWidth);
}

void MainWindow::ToggleSidebar() {
    const bool wasShut = !sidebarLiesOver_ && columns_->sizes().front() == 0;
    const bool shown = !sidebar_->isVisible() || wasShut;
    if (!isNarrow_) wantsSidebar_ = shown;
    ShowSidebar(shown);
    columns_->refresh();  // its width is 0 until the columns are laid out
    if (shown && !sidebarLiesOver_ && columns_->sizes().front() == 0) columns_->setSizes(kFirstColumns);
}

void MainWindow::ShowSidebar(bool shown) {
    LaySidebarOver(shown && width() < kSidebarBeside);
    sidebar_->setVisible(shown);
}

void MainWindow::LaySidebarOver(bool over) {
    if (over) {
        if (!sidebarLiesOver_) besideState_ = columns_->saveState();
        sidebar_->setParent(columns_->parentWidget());
        sidebar_->setGeometry(0, columns_->y(), Sidebar::kFirstWidth, columns_->height());
        sidebar_->raise();
    } else if (sidebarLiesOver_) {
        columns_->insertWidget(0, sidebar_);
        columns_->restoreState(besideState_);
    }
    sidebarLiesOver_ = over;
}

// A click outside folds away a sidebar that lies over the main area.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mainArea_ && event->type() == QEvent::Resize) AdaptMainArea();
    if (sidebarLiesOver_ && event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        const auto* widget = static_cast<QWidget*>(watched);
        const bool isOutside = widget->window() == this && widget != sidebar_ &&
                               !sidebar_->isAncestorOf(widget) && widget != &tabRow_->SidebarButton();
        if (isOutside) ShowSidebar(false);
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    LeaveFields();
    if (!lists_->MayLeave()) {
        event->ignore();
        return;
    }
    binder_.Event([this] { Form_Unload(form_); });
    event->accept();
}

}  // namespace commtest
