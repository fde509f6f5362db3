#pragma once

#include <vector>

#include "runtime/text.h"

namespace commtest {

class MainForm;
enum class OperationMenu;

// One entry of a right-mouse menu; an empty caption is a separator.
struct MenuEntry {
    int index;
    TextView caption;
    bool enabled;
    bool isInForce = false;  // the operation that each cycle performs
    bool takesRow = false;   // it reads one row
};

// The menu that a right click on the parameter grid brings, 0 for none, else 1 to 4 (指令设定1 to 指令设定4).
int MenuOfProtocol(const MainForm& form);

// The entries of menu 1 to 4 for the protocol in use.
std::vector<MenuEntry> EntriesOfMenu(const MainForm& form, int menu);

// The words of the entry that is in force, empty where the menu has none.
TextView OperationInForce(const MainForm& form);

// A choice of entry `index` of menu 1 to 4.
void ChooseMenuEntry(MainForm& form, int menu, int index);

// The entries that a right click on grid `index` brings; none brings no menu.
std::vector<MenuEntry> EntriesOfGrid(const MainForm& form, int grid);

// A choice of entry `index` of the menu of a grid, `row` being the row under the pointer.
void ChooseGridMenuEntry(MainForm& form, int grid, int index, int row);

// Empties the current column of the parameter grid from row 6 to the last, if it is column 5 or beyond. Rows
// 1 to 5 keep their text.
void ClearCurrentColumn(MainForm& form);

}  // namespace commtest
