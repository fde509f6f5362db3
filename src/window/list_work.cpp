#include "window/list_work.h"

#include <QDesktopServices>
#include <QUrl>

#include "host_qt/words.h"
#include "window/channel_table_note.h"
#include "window/sidebar.h"
#include "window/tool_bar.h"

namespace commtest {

namespace {

constexpr int kExportButton = 8;
constexpr int kToolsButton = 10;
const QList<int> kPagesThatAsk = {2, 3};  // instruments, recordings

void OpenFolder(const QString& folder) { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); }

}  // namespace

ListWork::ListWork(const Room& room)
    : QObject(&room.window),
      wait_(new StoreWait(this)),
      exportWait_(new StoreWait(this)),
      restore_(new CatalogueRestore(room.binder, room.theme, room.notes, &room.window)),
      import_(new ListImport({room.binder, room.theme, room.notes, room.band, *wait_, room.window})),
      spreadsheets_(new SpreadsheetExport(
          {room.binder, room.theme, room.notes, room.band, *exportWait_, room.window})) {
    connect(import_, &ListImport::RestoreWanted, restore_, &CatalogueRestore::Ask);
    TakeCommands(room);
    CoverWhatWaits(room);
}

void ListWork::TakeCommands(const Room& room) {
    Binder& binder = room.binder;
    room.toolBar.Take(toolbar::kImport, [this] { import_->Begin(); });
    room.toolBar.Take(toolbar::kChannelTable,
                      [&binder, &notes = room.notes] { MakeChannelTable(binder, notes, OpenFolder); });
    room.toolBar.Take(ToolbarEntry::ExportCurrentTable, [this] { spreadsheets_->ExportCurrent(); });
    room.toolBar.Take(ToolbarEntry::ExportAllTables, [this] { spreadsheets_->ExportAll(); });
    room.toolBar.Take(toolbar::kLeave, [this, &binder] {
        if (MayLeave()) binder.Event([&] { RunToolbarCommand(binder.Form(), toolbar::kLeave); });
    });
}

void ListWork::CoverWhatWaits(const Room& room) {
    for (QWidget* choice : room.sidebar.Choices()) wait_->Cover(*choice);
    for (QWidget* list : room.lists) wait_->Cover(*list);
    for (const int button : {toolbar::kImport, kExportButton}) wait_->Cover(room.toolBar.Button(button));
    for (const ToolbarEntry entry : {ToolbarEntry::ToolWindow, ToolbarEntry::ReloadParameters})
        wait_->Cover(*room.toolBar.Entry(entry));
    QAction* restore =
        room.toolBar.AddEntry(kToolsButton, Words::tr("恢复原目录..."), [this] { restore_->Ask(); });
    wait_->Cover(*restore);
    wait_->Cover(room.tabs, kPagesThatAsk);
    for (QWidget* choice : room.sidebar.Choices()) exportWait_->Cover(*choice);
    for (const int button : {toolbar::kImport, kExportButton})
        exportWait_->Cover(room.toolBar.Button(button));
    exportWait_->Cover(*restore);
}

}  // namespace commtest
