#include "catalogue/catalogue_lists.h"

#include "catalogue/face_settings.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/list_binding.h"
#include "host/store.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kInstrumentTab = 2;
constexpr int kRecordingTab = 3;

// The rows of a layout, one a column.
class Layout {
  public:
    explicit Layout(StoreRows rows) : rows_(std::move(rows)) {}

    std::size_t Rows() const { return rows_.rows.size(); }
    int NumberOf(std::size_t row) const { return ToWhole32(ValueOf(row, u"列号")); }
    Text Heading(std::size_t row) const { return ValueOf(row, u"字段"); }

    void LayOut(std::size_t row, GridColumn& column) const {
        column.isLaidOut = true;
        column.width = ToWhole32(ValueOf(row, u"宽度"));
        column.merge = ToWhole32(ValueOf(row, u"合并"));
        column.alignment = ToWhole32(ValueOf(row, u"对齐"));
    }

  private:
    Text ValueOf(std::size_t row, TextView column) const {
        return rows_.At(row, static_cast<std::size_t>(rows_.ColumnOf(column)));
    }

    StoreRows rows_;
};

bool IsValueColumn(int number) { return number >= column::kSingleRead; }

// Q236: as wide as those of the Chinese face, under headings of their own.
void LayOutValueColumns(MainForm& form) {
    const Layout chinese(GridColumnsOfFace(form.outside.store, kSettingsTable));
    Grid& grid = form.ParameterGrid();
    for (std::size_t row = 0; row < chinese.Rows(); ++row) {
        const int number = chinese.NumberOf(row);
        if (!IsValueColumn(number)) continue;
        chinese.LayOut(row, grid.Column(number));
        grid.SetCell(0, number, Text(form.texts.parameterHeadings.at(static_cast<std::size_t>(number))));
    }
}

}  // namespace

void LoadProtocolList(MainForm& form) {
    for (const ProtocolRecord& protocol : ProtocolsOfFace(form.outside.store, form.settingsTable)) {
        form.ProtocolCodeOfType.push_back(protocol.Code());
        form.ConCommTypeList.Add(protocol.name);
        form.ConMeterType.Captions.push_back(protocol.name);
    }
}

void LoadDataTypes(MainForm& form) {
    const StoreRows types = DataTypesOfFace(form.outside.store, form.settingsTable);
    for (std::size_t row = 0; row < types.rows.size(); ++row)
        form.ConDataTypeList.Add(Trim(types.At(row, 0)));
}

void LoadGridLayout(MainForm& form) {
    const Layout own(GridColumnsOfFace(form.outside.store, form.settingsTable));
    Grid& grid = form.ParameterGrid();
    for (std::size_t row = 0; row < own.Rows(); ++row) {
        const int number = own.NumberOf(row);
        if (IsValueColumn(number) && !form.switches.valueColumnLayout) continue;
        own.LayOut(row, grid.Column(number));
        grid.SetCell(0, number, own.Heading(row));
    }
    if (!form.switches.valueColumnLayout) LayOutValueColumns(form);
}

void SSTab2_Click(MainForm& form) {
    const InstrumentCatalogue catalogue(form.outside.store);
    if (form.SSTab2.IsChosen(kInstrumentTab)) BindToGrid(form.MSHFlexGrid1[1], catalogue.CatalogueList());
    if (form.SSTab2.IsChosen(kRecordingTab)) BindToGrid(form.MSHFlexGrid1[2], catalogue.RecordingsList());
}

}  // namespace commtest
