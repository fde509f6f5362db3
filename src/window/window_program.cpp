#include "window/window_program.h"

#include <QApplication>

#include "catalogue/shipped_catalogue.h"
#include "commands/startup.h"
#include "commands/toolbar_commands.h"
#include "host_qt/named_port.h"
#include "host_qt/program_folder.h"
#include "host_qt/qt_settings.h"
#include "host_qt/renewed_help.h"
#include "host_qt/unsaved_settings.h"
#include "host_qt/words.h"
#include "session/events.h"
#include "session/port_settings.h"
#include "window/face_choice.h"
#include "window/kept_picture.h"
#include "window/list_work.h"
#include "window/port_return.h"
#include "window/simulator_settings.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QSettings> OpenSettings(const QString& file) {
    if (file.isEmpty()) return std::make_unique<QSettings>(u"CommTest"_s, u"CommTest"_s);
    return std::make_unique<QSettings>(file, QSettings::IniFormat);
}

// What a session with the simulated instrument chooses goes only to a file that is named for it, and its port
// and instrument nowhere.
std::unique_ptr<SettingsStore> SettingsIn(QSettings& store, const WindowOptions& options) {
    if (!options.hasSimulator) return std::make_unique<QtSettings>(store);
    if (options.settingsFile.isEmpty()) return std::make_unique<UnsavedSettings>(store);
    return std::make_unique<SimulatorSettings>(store);
}

QString FolderOf(const WindowOptions& options, const QSettings& settings) {
    if (!options.folder.isEmpty()) return options.folder;
    const QString remembered = MissingCatalogue::RememberedFolder(settings);
    if (!remembered.isEmpty()) return remembered;
    return FindProgramFolder(FillWithShippedCatalogue).path;
}

// Devices that the user has named for ports: on the command line, else in the section "Ports" of the
// settings, "COM3=/dev/ttyS1".
DeviceMap DevicesOf(const WindowOptions& options, const SimulatedInstrument& simulated, QSettings& settings) {
    DeviceMap devices = options.devices;
    if (options.hasSimulator) devices.insert_or_assign(1, simulated.Device());
    settings.beginGroup(u"Ports"_s);
    for (const QString& name : settings.childKeys()) {
        if (const auto port = NamedPortOf(name))
            devices.try_emplace(port->number, settings.value(name).toString());
    }
    settings.endGroup();
    return devices;
}

Theme::Choice PaletteChoice(const QSettings& settings) {
    const QString choice = settings.value(u"Window/Theme"_s, u"auto"_s).toString();
    if (choice == u"dark") return Theme::Choice::Dark;
    return choice == u"light" ? Theme::Choice::Light : Theme::Choice::Auto;
}

const WindowFace& FaceIn(const QSettings& settings, const WindowOptions& options) {
    return options.face == nullptr ? RememberedFace(settings) : *options.face;
}

}  // namespace

const WindowFace& ChosenFace(const WindowOptions& options) {
    return FaceIn(*OpenSettings(options.settingsFile), options);
}

WindowProgram::WindowProgram(const WindowOptions& options)
    : store_(OpenSettings(options.settingsFile)),
      hasSimulator_(options.hasSimulator),
      keepsChoices_(!options.hasSimulator || !options.settingsFile.isEmpty()),
      files_(FolderOf(options, *store_)),
      port_(DevicesOf(options, simulated_, *store_)),
      settings_(SettingsIn(*store_, options), catalogue_),
      session_({port_, dialogs_, clock_, files_, catalogue_, settings_, program_},
               FaceIn(*store_, options).session),
      theme_(std::make_unique<Theme>(PaletteChoice(*store_))),
      choices_(Form(), *store_, !options.hasSimulator) {
    dialogs_.SetSession(Form());
    dialogs_.SetTheme(*theme_);
    WireEvents();
    KeepPictureOverFailures(Form());
    remembersFolder_ = options.folder.isEmpty();
    RenewHelp(files_.Folder());
}

void WindowProgram::WireEvents() {
    port_.Receives = [this] {
        PortReceives(Form());
        LookSoon();
    };
    port_.IsLost = [this](const Text& reason) {
        PortIsLost(Form(), reason);
        LookSoon();
    };
    port_.IsBack = [this](const Text& device) {
        if (window_) window_->LostPort().TellBack(QString::fromStdU16String(device));
    };
    port_.IsGoneAgain = [this] {
        if (window_) window_->LostPort().TellGone();
    };
    program_.IsCalled = [this] { BringForward(); };
    port_.IsNamed = [this](int number, const QString& device) { KeepDevice(number, device); };
    for (int index = 0; index < static_cast<int>(Form().Timer1.size()); ++index) {
        timers_.Drive(Form().Timer1[static_cast<std::size_t>(index)], [this, index] {
            TimerTicks(Form(), index);
            LookSoon();
        });
    }
    timers_.Drive(session_.Tools().Timer1, [this] {
        RunEvent(Form(), [this] { Timer1_Timer(session_.Tools()); });
        LookSoon();
    });
}

void WindowProgram::LookSoon() {
    if (window_) window_->Views().LookSoon();
}

// Another start ends with a call to this one.
void WindowProgram::BringForward() {
    if (!window_) return;
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void WindowProgram::KeepDevice(int number, const QString& device) {
    if (!hasSimulator_) store_->setValue(u"Ports/COM%1"_s.arg(number), device);
}

bool WindowProgram::Start() {
    RunEvent(Form(), [this] { Form_Activate(Form()); });
    if (program_.HasEnded()) {
        program_.CallFirst();
        return false;
    }
    missing_ = std::make_unique<MissingCatalogue>(Form(), files_, *store_);
    if (remembersFolder_) missing_->RememberFolder();
    if (hasSimulator_) StartSimulator();
    choices_.PutBack();
    window_ = std::make_unique<MainWindow>(Form(), *theme_, *store_);
    window_->Lists().Spreadsheets().Use(spreadsheets_);
    dialogs_.SetWindow(window_.get());
    if (keepsChoices_) {
        choices_.Follow(window_->Views(), *window_->findChild<TextSpinBox*>(u"ConDelayTime"_s));
    }
    window_->Views().AtEachLook([this] { FollowTool(); });
    missing_->ShowIn(*window_, *theme_);
    window_->ShowFirstSteps([this] { TryOutSimulator(); });
    window_->show();
    return true;
}

// The tool comes behind a box that stands when it is opened, so as not to lie under the main window then.
void WindowProgram::FollowTool() {
    DataTools& tools = session_.Tools();
    if (tools.Window.Generation() == shownTool_ || QApplication::activeModalWidget() != nullptr) return;
    shownTool_ = tools.Window.Generation();
    if (tools.Window.Visible() && !toolWindow_) {
        toolWindow_ = std::make_unique<ToolWindow>(Form(), tools, *theme_, *store_);
    }
    if (toolWindow_) toolWindow_->Follow();
}

bool WindowProgram::StartSimulator() {
    const bool isThere = simulated_.Start();
    if (isThere) {
        RunEvent(Form(), [this] { ChooseSimulated(); });
    } else {
        dialogs_.ShowMessage(Words::tr("模拟仪表不能启动！").toStdU16String(),
                             simulated_.Problem().toStdU16String());
    }
    return isThere;
}

// A trial leaves the user's settings as they were.
void WindowProgram::TryOutSimulator() {
    settings_.BeginTrial();
    choices_.BeginTrial();
    port_.SetDevice(1, simulated_.Device());
    if (StartSimulator()) window_->Views().Event([this] { RunToolbarCommand(Form(), toolbar::kStartStop); });
}

void WindowProgram::ChooseSimulated() {
    MainForm& form = Form();
    form.ConCommTypeList.Set(SimulatedInstrument::kProtocol);
    RunIfSet(form.ConCommTypeList.Click);
    form.InstrumentList().Set(SimulatedInstrument::kName);
    RunIfSet(form.InstrumentList().Click);
    form.ConMeterAddr.Set(u"1");
    ShowStoredPortSettings(form, u"9600,N,8,1 COM1");
    ShowPortStatus(form);
}

void WindowProgram::Finish() {
    window_->SaveState();
    if (toolWindow_) toolWindow_->SaveState();
}

}  // namespace commtest
