#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// Buttons of the toolbar, by index.
namespace toolbar {
inline constexpr int kImport = 2;
inline constexpr int kSearch = 3;
inline constexpr int kStartStop = 4;
inline constexpr int kExport = 9;
inline constexpr int kLeave = 11;
}  // namespace toolbar

// The action of a toolbar button; buttons without one do nothing. Button 4 is a toggle: a routine that means
// to stop a stopped session with it starts it.
void RunToolbarCommand(MainForm& form, int index);

// A choice of the toolbar's drop-down menus, by its caption. "指令选择" is the view's: it brings the menu of
// the parameter grid.
void ToolbarMenuCommand(MainForm& form, TextView caption);

}  // namespace commtest
