#pragma once

#include <QSettings>
#include <memory>

#include "app/session.h"
#include "host/settings_store.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_program.h"
#include "host_qt/qt_serial_port.h"
#include "host_qt/qt_spreadsheet.h"
#include "host_qt/qt_timers.h"
#include "host_qt/system_clock.h"
#include "window/kept_choice.h"
#include "window/main_window.h"
#include "window/missing_catalogue.h"
#include "window/remembered_choices.h"
#include "window/simulated_instrument.h"
#include "window/tool_window.h"
#include "window/window_dialogs.h"
#include "window/window_face.h"

namespace commtest {

struct WindowOptions {
    QString folder;             // the program folder; empty: the usual one
    QString settingsFile;       // empty: the user's
    DeviceMap devices;          // ports that have a device of their own
    bool hasSimulator = false;  // the session then keeps nothing in the user's settings; the window does
    const WindowFace* face = nullptr;  // none: the one that the settings remember
};

// The face of a program with these options.
const WindowFace& ChosenFace(const WindowOptions& options);

// The program with a window: a session over the machine it runs on.
class WindowProgram {
  public:
    // A run-time error if the program folder cannot be made.
    explicit WindowProgram(const WindowOptions& options);

    // The work of the start, and the window on the screen. False where the start has ended the program.
    bool Start();

    // Remembers how the window stands.
    void Finish();

    MainForm& Form() { return session_.Form(); }
    MainWindow& Window() { return *window_; }
    MissingCatalogue& Missing() { return *missing_; }
    DataTools& Tools() { return session_.Tools(); }

  private:
    void WireEvents();
    void LookSoon();
    void BringForward();
    void KeepDevice(int number, const QString& device);
    void FollowTool();
    bool StartSimulator();
    void TryOutSimulator();
    void ChooseSimulated();

    std::unique_ptr<QSettings> store_;
    bool hasSimulator_;
    bool keepsChoices_;
    bool remembersFolder_ = false;  // unless one was named
    SimulatedInstrument simulated_;

    FolderFiles files_;
    CatalogueStore catalogue_;
    QtSerialPort port_;
    WindowDialogs dialogs_;
    SystemClock clock_;
    KeptChoice settings_;
    QtProgram program_;
    QtSpreadsheetEngine spreadsheets_;
    QtTimers timers_;
    Session session_;
    std::unique_ptr<Theme> theme_;
    RememberedChoices choices_;
    std::unique_ptr<MissingCatalogue> missing_;
    std::unique_ptr<MainWindow> window_;
    std::unique_ptr<ToolWindow> toolWindow_;  // made when it is opened for the first time
    std::uint64_t shownTool_ = 0;             // generation of the tool's presence
};

}  // namespace commtest
