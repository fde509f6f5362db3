#include "commands/list_clicks.h"

#include "catalogue/chip_records.h"
#include "replay/replay_script.h"
#include "session/grid_editing.h"
#include "session/main_form.h"

namespace commtest {

namespace {

void ClickCatalogueRow(MainForm& form) {
    Grid& grid = form.MSHFlexGrid1[1];
    grid.Redraw = false;
    const Text protocol = grid.Cell(grid.Row, 1);
    const Text instrument = grid.Cell(grid.Row, 3);
    if (form.ConCommTypeList.Value() != protocol) {
        form.ConCommTypeList.Set(protocol);
        RunIfSet(form.ConCommTypeList.Click);
    }
    if (form.InstrumentName() != instrument) {
        form.InstrumentList().Set(instrument);
        RunIfSet(form.InstrumentList().Click);
    }
    form.SSTab2.Choose(0);
    grid.Redraw = true;
}

void ChooseRecording(MainForm& form) {
    const Grid& grid = form.MSHFlexGrid1[2];
    SelectRecording(form, grid.Cell(grid.Row, 1), grid.Cell(grid.Row, 2), grid.Cell(grid.Row, 3));
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
    if (index == 0) ClickParameterGrid(form);
    if (index == 1) ClickCatalogueRow(form);
    if (index == 2) ClickRecordingRow(form);
    if (index == 3) ShowChipRecord(form);
}

void MSHFlexGrid1_DblClick(MainForm& form, int index) {
    if (index == 1) {
        const Grid& grid = form.MSHFlexGrid1[1];
        form.ConCommTypeList.Set(grid.Cell(grid.Row, 1));
        RunIfSet(form.ConCommTypeList.Click);
        form.InstrumentList().Set(grid.Cell(grid.Row, 3));
        RunIfSet(form.InstrumentList().Click);
        form.Focus.Ask(FocusWish::Target::CatalogueGrid);
    }
    if (index == 2) ChooseRecording(form);
}

}  // namespace commtest
