#pragma once

#include "app/session.h"
#include "catalogue/spreadsheet_cells.h"
#include "cli/catalogue_access.h"
#include "cli/console_dialogs.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/no_settings.h"
#include "host_qt/qt_program.h"
#include "host_qt/qt_serial_port.h"
#include "host_qt/system_clock.h"

namespace commtest {

// The parameter tables of a catalogue, loaded as a session without a line loads them.
class SheetSource {
  public:
    // A Problem if the catalogue cannot be opened.
    SheetSource(FolderFiles& files, const CataloguePlace& catalogue, Console& console);

    // Of the instruments of all protocols.
    std::vector<InstrumentSheet> All();

    // Of one; a Problem if no protocol has it.
    InstrumentSheet Of(const Text& instrument);

  private:
    MainForm& Form() { return session_.Form(); }
    void ChooseProtocol(const Text& protocol);

    CatalogueStore store_;
    QtSerialPort port_;
    ConsoleDialogs dialogs_;
    SystemClock clock_;
    NoSettings settings_;
    QtProgram program_;
    Session session_;
};

}  // namespace commtest
