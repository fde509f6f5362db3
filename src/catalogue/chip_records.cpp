#include "catalogue/chip_records.h"

#include "catalogue/instrument_catalogue.h"
#include "catalogue/list_binding.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr std::size_t kInstrumentField = 0;
constexpr std::size_t kCodeField = 1;

const Grid& ChipList(const MainForm& form) { return form.MSHFlexGrid1[3]; }

void EmptyFields(MainForm& form) {
    for (ListControl& field : form.ConCpudataCombo) field.Set({});
    form.ConCpudataText.Set({});
}

// The query's columns stand in the order of the fields.
void FillFields(MainForm& form, const StoreRows& records) {
    std::size_t column = 0;
    for (ListControl& field : form.ConCpudataCombo) field.Set(records.At(0, column++));
    if (form.switches.chipDescription) form.ConCpudataText.Set(records.At(0, column));
}

}  // namespace

void ShowChipFilePanel(MainForm& form) {
    form.ConCpuDataShow.SetVisible(true);
    Grid& grid = form.MSHFlexGrid1[3];
    BindToGrid(grid, InstrumentCatalogue(form.outside.store).ChipList());
    if (grid.Rows() > 1) grid.Select(1, chip_column::kInstrument);
    ShowChipRecord(form);
}

void ShowChipRecord(MainForm& form) {
    const Grid& grid = ChipList(form);
    if (grid.Rows() < 2) return EmptyFields(form);
    const Text instrument = grid.Cell(grid.Row, chip_column::kInstrument);
    const Text file = grid.Cell(grid.Row, chip_column::kFile);
    const StoreRows records = InstrumentCatalogue(form.outside.store).ChipRecord(instrument, file);
    if (!records.rows.empty()) return FillFields(form, records);
    // Q229: no file has the name of none.
    EmptyFields(form);
    form.ConCpudataCombo[kInstrumentField].Set(instrument);
    form.ConCpudataCombo[kCodeField].Set(grid.Cell(grid.Row, chip_column::kCode));
}

void ConCpuDataCommand_Click(MainForm& form, int index) {
    if (index == chip_button::kClose) form.ConCpuDataShow.SetVisible(false);  // Q228
}

}  // namespace commtest
