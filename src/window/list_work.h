#pragma once

#include "window/catalogue_restore.h"
#include "window/list_import.h"
#include "window/store_wait.h"

namespace commtest {

class GridView;
class Sidebar;
class ToolBar;

// What the window does with lists and the whole catalogue: import, channel table, restore; and what waits
// for it.
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
    CatalogueRestore& Restore() { return *restore_; }
    StoreWait& Wait() { return *wait_; }

  private:
    void TakeCommands(const Room& room);
    void CoverWhatWaits(const Room& room);

    StoreWait* wait_;
    CatalogueRestore* restore_;
    ListImport* import_;
};

}  // namespace commtest
