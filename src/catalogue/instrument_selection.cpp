#include "catalogue/instrument_selection.h"

#include <algorithm>

#include "catalogue/instrument_catalogue.h"
#include "host/store.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/address.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

// Columns of the queries, by position.
constexpr std::size_t kInstrumentName = 0;
constexpr std::size_t kCodeOfInstrument = 3;
constexpr std::size_t kUpperLimit = 5;
constexpr std::size_t kLowerLimit = 6;
constexpr std::size_t kCodeOfParameter = 9;
constexpr int kParameterFields = 5;  // go to columns 1 to 5, the limits behind them to no cell (Q176)

constexpr int kRowsWhileLoading = 1000;
constexpr int kFewestRows = 15;
constexpr int kPresetRows = 5;  // their column 7 is preset with 0 to 4 (Q175)

void SetDisplayMode(MainForm& form) {
    const DisplayMode mode = form.ProtocolInUse().displayMode;
    if (mode == DisplayMode::Ascii) form.ShowMode.Show(0);
    if (mode == DisplayMode::Hexadecimal) form.ShowMode.Show(1);
}

void FillRow(MainForm& form, int row, const StoreRows& parameters) {
    Grid& grid = form.ParameterGrid();
    const auto record = static_cast<std::size_t>(row) - 1;
    if (row <= kPresetRows) grid.SetCell(row, column::kGroupRead, WholeText(row - 1));
    for (int field = 0; field < kParameterFields; ++field) {
        grid.SetCell(row, field + 1, parameters.At(record, static_cast<std::size_t>(field)));
    }
    form.Limits.push_back({parameters.At(record, kLowerLimit), parameters.At(record, kUpperLimit)});
    if (form.MeterCodeText.empty()) form.MeterCodeText = parameters.At(record, kCodeOfParameter);
}

void FillParameterGrid(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    grid.Redraw = false;
    grid.Clear();
    grid.SetSize(kRowsWhileLoading, column::kCount);
    grid.Select(1, 1);
    const StoreRows parameters =
        InstrumentCatalogue(form.outside.store).ParametersOfInstrument(form.InstrumentName());
    const int count = static_cast<int>(parameters.rows.size());
    grid.SetRows(std::max(count + 1, kFewestRows));
    form.Limits.assign(1, {});
    for (int row = 1; row <= count; ++row) FillRow(form, row, parameters);
    SetUpParameterGrid(form, form.texts.parameterHeadings);
}

void ShowDataType(MainForm& form) {
    const int type = LeadingWholeNumber(Mid(form.MeterCodeText, 3, 2));
    const int known = static_cast<int>(form.ConDataTypeList.Items().size());
    // Q178: these alone.
    if (type >= 1 && type <= 10 && type < known) form.ConDataTypeList.Set(form.ConDataTypeList.At(type));
}

}  // namespace

void ConCommTypeList_Click(MainForm& form) {
    const auto& captions = form.ConMeterType.Captions;
    const auto found = std::find_if(captions.begin(), captions.end(), [&](const Text& caption) {
        return Contains(caption, form.ConCommTypeList.Value());  // Q171: or a part
    });
    if (found != captions.end()) form.ConMeterType.Choose(static_cast<int>(found - captions.begin()));
    SetDisplayMode(form);
}

void ConMeterType_Click(MainForm& form, int index) {
    if (index == 0) form.ConMyCommDriver.SetEnabled(true);  // Q174: nothing disables it
    const auto type = static_cast<std::size_t>(index);
    if (type >= form.ProtocolCodeOfType.size()) throw RuntimeError(RuntimeError::kSubscript);
    form.ProtocolCode = form.ProtocolCodeOfType[type];
    LoadInstrumentNames(form);
    ConMeterAddr_Change(form);
}

void ChooseProtocolOfType(MainForm& form, int index) {
    const auto type = static_cast<std::size_t>(index);
    if (type >= form.ConMeterType.Captions.size()) throw RuntimeError(RuntimeError::kSubscript);
    form.ConCommTypeList.Set(form.ConMeterType.Captions[type]);
    RunIfSet(form.ConCommTypeList.Click);
}

void LoadInstrumentNames(MainForm& form) {
    ListControl& names = form.InstrumentList();
    names.Clear();
    const StoreRows instruments =
        InstrumentCatalogue(form.outside.store).InstrumentsOfProtocol(form.ConCommTypeList.Value());  // Q172
    for (std::size_t record = 0; record < instruments.rows.size(); ++record) {
        names.Add(instruments.At(record, kInstrumentName));
        // Q173: the last one stays.
        form.ProtocolCode = Whole16(LeadingWholeNumber(Left(instruments.At(record, kCodeOfInstrument), 2)));
    }
    names.Set(names.Items().empty() ? Text() : names.At(0));
    RunIfSet(names.Click);
}

void LoadInstrumentsAnew(MainForm& form) {
    ListControl& names = form.InstrumentList();
    const Text former = names.Value();
    const int type = form.ConMeterType.Chosen();
    type < 0 ? LoadInstrumentNames(form) : ConMeterType_Click(form, type);
    if (names.IndexOf(former) < 0 || names.Value() == former) return;
    names.Set(former);
    RunIfSet(names.Click);
}

void ConMeterName_Click(MainForm& form) {
    form.SentFrames().Clear();
    form.MeterCodeText.clear();
    FillParameterGrid(form);  // Q177: CurrentRow stays
    form.DynamicSample.clear();
    form.StaticSample.clear();
    form.ParameterGrid().Redraw = true;
    ShowDataType(form);
    form.Focus.Ask(FocusWish::Target::ParameterGrid);
}

}  // namespace commtest
