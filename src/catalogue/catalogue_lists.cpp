#include "catalogue/catalogue_lists.h"

#include "catalogue/instrument_catalogue.h"
#include "catalogue/list_binding.h"
#include "host/store.h"
#include "runtime/number.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kInstrumentTab = 2;
constexpr int kRecordingTab = 3;

}  // namespace

void LoadProtocolList(MainForm& form) {
    for (const ProtocolRecord& protocol : InstrumentCatalogue(form.outside.store).ProtocolList()) {
        form.ProtocolCodeOfType.push_back(protocol.Code());
        form.ConCommTypeList.Add(protocol.name);
        form.ConMeterType.Captions.push_back(protocol.name);
    }
}

void LoadDataTypes(MainForm& form) {
    const StoreRows types = InstrumentCatalogue(form.outside.store).DataTypeList();
    for (std::size_t row = 0; row < types.rows.size(); ++row)
        form.ConDataTypeList.Add(Trim(types.At(row, 0)));
}

void LoadGridLayout(MainForm& form) {
    const StoreRows layout = InstrumentCatalogue(form.outside.store).GridLayout();
    const auto valueOf = [&layout](std::size_t row, TextView column) {
        return layout.At(row, static_cast<std::size_t>(layout.ColumnOf(column)));
    };
    Grid& grid = form.ParameterGrid();
    for (std::size_t row = 0; row < layout.rows.size(); ++row) {
        const int number = ToWhole32(valueOf(row, u"列号"));
        GridColumn& column = grid.Column(number);
        column.isLaidOut = true;
        column.width = ToWhole32(valueOf(row, u"宽度"));
        column.merge = ToWhole32(valueOf(row, u"合并"));
        column.alignment = ToWhole32(valueOf(row, u"对齐"));
        grid.SetCell(0, number, valueOf(row, u"字段"));
    }
}

void SSTab2_Click(MainForm& form) {
    const InstrumentCatalogue catalogue(form.outside.store);
    if (form.SSTab2.IsChosen(kInstrumentTab)) BindToGrid(form.MSHFlexGrid1[1], catalogue.CatalogueList());
    if (form.SSTab2.IsChosen(kRecordingTab)) BindToGrid(form.MSHFlexGrid1[2], catalogue.RecordingsList());
}

}  // namespace commtest
