#include "session/grid_editing.h"

#include <algorithm>

#include "session/grid_rows.h"
#include "session/main_form.h"
#include "session/polling_cycle.h"

namespace commtest {

namespace {

void OpenCellEditor(MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    form.InputText.Set(grid.Cell(grid.Row, grid.Col));
    form.Focus.Ask(FocusWish::Target::CellEditor);
    form.InputText.SetVisible(true);
    StopInShortWay(form);
}

void ClickParameter(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    grid.Redraw = false;
    if (grid.Col == column::kSingleRead) {
        const bool readsRows =
            form.CommandCode == command::kReadThisRow || form.CommandCode == command::kReadRowByRow;
        if (readsRows) form.CurrentRow = static_cast<std::int16_t>(grid.Row);
    } else if (grid.Col != column::kNewValue) {
        form.InputText.SetVisible(false);
    } else if (Contains(grid.Cell(grid.Row, column::kAttribute), u"W")) {
        OpenCellEditor(form);
    } else {
        form.dialogs.ShowMessage(u"注意:参数没有W属性,数据无法修改！", {});
        form.InputText.SetVisible(false);
        return;  // the redraw stays off until the next request for it
    }
    grid.Redraw = true;
}

void ClickCatalogueRow(MainForm& form) {
    Grid& grid = form.MSHFlexGrid1[1];
    grid.Redraw = false;
    const Text protocol = grid.Cell(grid.Row, 1);
    const Text instrument = grid.Cell(grid.Row, 3);
    if (form.ConCommTypeList.Value() != protocol) {
        form.ConCommTypeList.Set(protocol);
        RunIfSet(form.ConCommTypeList.Click);
    }
    if (form.ConMeterName[0].Value() != instrument) {
        form.ConMeterName[0].Set(instrument);
        RunIfSet(form.ConMeterName[0].Click);
    }
    form.SSTab2.Choose(0);
    grid.Redraw = true;
}

void ChooseRecording(MainForm& form) {
    const Grid& grid = form.MSHFlexGrid1[2];
    form.ConCommTypeList.Set(grid.Cell(grid.Row, 1));
    RunIfSet(form.ConCommTypeList.Click);
    form.companions.LoadRecording(form, grid.Row);
}

void ClickRecordingRow(MainForm& form) {
    Grid& grid = form.MSHFlexGrid1[2];
    grid.Redraw = false;
    ChooseRecording(form);
    form.SSTab2.Choose(0);
    grid.Redraw = true;
}

}  // namespace

void MSHFlexGrid1_Click(MainForm& form, int index) {
    if (index == 0) ClickParameter(form);
    if (index == 1) ClickCatalogueRow(form);
    if (index == 2) ClickRecordingRow(form);
    if (index == 3) form.companions.ShowChipRecord(form, form.MSHFlexGrid1[3].Row);
}

void MSHFlexGrid1_DblClick(MainForm& form, int index) {
    if (index == 1) {
        const Grid& grid = form.MSHFlexGrid1[1];
        form.ConCommTypeList.Set(grid.Cell(grid.Row, 1));
        RunIfSet(form.ConCommTypeList.Click);
        form.ConMeterName[0].Set(grid.Cell(grid.Row, 3));
        RunIfSet(form.ConMeterName[0].Click);
        form.Focus.Ask(FocusWish::Target::CatalogueGrid);
    }
    if (index == 2) ChooseRecording(form);
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
