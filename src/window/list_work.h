#pragma once

#include "window/catalogue_restore.h"
#include "window/list_import.h"
#include "window/spreadsheet_export.h"
#include "window/store_wait.h"

namespace commtest {

class GridView;
class Sidebar;
class ToolBar;

// What the window does with lists and the whole catalogue: import, channel table, restore, spreadsheets; and
// what waits for it.
class ListWork : public QObject {
    Q_OBJECT

  public:
    struct Room {
        Binder& binder;
        const Theme& theme;
        NoteBar& notes;
        WorkBand& band;
        ToolBar& toolBar;
        Sidebar& sidebar;
        QTabBar& tabs;
        QList<QWidget*> lists;  // pages that ask the catalogue
        QWidget& window;
    };
    explicit ListWork(const Room& room);

    ListImport& Import() { return *import_; }
    SpreadsheetExport& Spreadsheets() { return *spreadsheets_; }
    CatalogueRestore& Restore() { return *restore_; }
    StoreWait& Wait() { return *wait_; }

    // Asks while something is being written.
    bool MayLeave() { return import_->MayLeave() && spreadsheets_->MayLeave(); }

  private:
    void TakeCommands(const Room& room);
    void CoverWhatWaits(const Room& room);

    StoreWait* wait_;
    StoreWait* exportWait_;
    CatalogueRestore* restore_;
    ListImport* import_;
    SpreadsheetExport* spreadsheets_;
};

}  // namespace commtest
