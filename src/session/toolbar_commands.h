#pragma once

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

}  // namespace commtest
