#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// Buttons of the toolbar, by index.
namespace toolbar {
inline constexpr int kImport = 2;
inline constexpr int kSearch = 3;
inline constexpr int kStartStop = 4;
inline constexpr int kChannelTable = 9;
inline constexpr int kLeave = 11;
}  // namespace toolbar

inline constexpr TextView kImportQuestion = u"确定要重新导入仪表的参数地址表吗？";

// The action of a toolbar button; buttons without one do nothing.
void RunToolbarCommand(MainForm& form, int index);

// Entries of the toolbar's drop-down menus.
enum class ToolbarEntry { ToolWindow, OperationMenu, ReloadParameters, ExportCurrentTable, ExportAllTables };

TextView CaptionOf(ToolbarEntry entry);

// A choice of such an entry. Two things are the view's: the menu of operations, which is that of the
// parameter grid, and the exports, which write catalogue/spreadsheet_cells beside the polling.
void ToolbarMenuCommand(MainForm& form, ToolbarEntry entry);

}  // namespace commtest
