#include "session/grid_editing.h"

#include <algorithm>

#include "host/dialogs.h"
#include "session/grid_rows.h"
#include "session/main_form.h"
#include "session/polling_cycle.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

void OpenCellEditor(MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    form.InputText.Set(grid.Cell(grid.Row, grid.Col));
    form.Focus.Ask(FocusWish::Target::CellEditor);
    form.InputText.SetVisible(true);
    StopInShortWay(form, StopCause::Editor);
}

}  // namespace

void ClickParameterGrid(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    grid.Redraw = false;
    if (grid.Col == column::kSingleRead) {  // Q78: the editor stays
        const bool readsRows =
            form.CommandCode == command::kReadThisRow || form.CommandCode == command::kReadRowByRow;
        if (readsRows) form.CurrentRow = static_cast<std::int16_t>(grid.Row);
    } else if (grid.Col != column::kNewValue) {
        form.InputText.SetVisible(false);
    } else if (Contains(grid.Cell(grid.Row, column::kAttribute), u"W")) {
        OpenCellEditor(form);
    } else {
        form.outside.dialogs.ShowMessage(u"注意:参数没有W属性,数据无法修改！", {});
        form.InputText.SetVisible(false);
        return;  // Q77: the redraw stays off
    }
    grid.Redraw = true;
}

void MSHFlexGrid1_Scroll(MainForm& form, int) { form.InputText.SetVisible(false); }

void Obj_MouseWheel(MainForm& form, int index, int delta) {
    Grid& grid = form.MSHFlexGrid1[static_cast<std::size_t>(index)];
    const int wanted = delta < 1 ? grid.TopRow + 1 : grid.TopRow - 1;
    grid.TopRow = std::clamp(wanted, 1, std::max(LastRow(grid), 1));
    MSHFlexGrid1_Scroll(form, index);
}

void InputText_KeyDown(MainForm& form, int key) {
    if (key == key::kEnter) {
        BuildWriteRequest(form);
        StartInShortWay(form);
    }
    if (key == key::kEscape) form.InputText.SetVisible(false);
}

void InputText_LostFocus(MainForm& form) { form.InputText.SetVisible(false); }

}  // namespace commtest
