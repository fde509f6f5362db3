#include "catalogue/spreadsheet_cells.h"

#include <algorithm>
#include <utility>

#include "catalogue/instrument_selection.h"
#include "host/file_names.h"
#include "runtime/number.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kRowsAboveTheTable = 5;
constexpr int kSerialWidth = 3;

Text Serial(int row) {
    Text serial = WholeText(row);
    while (Len(serial) < kSerialWidth) serial.insert(0, u"0");
    return serial;
}

void AddTable(const Grid& grid, std::vector<SheetCell>& cells) {
    for (int row = 1; row < grid.Rows(); ++row) {  // Q225: empty ones, too
        const int sheetRow = row + kRowsAboveTheTable;
        cells.push_back({sheetRow, 0, Serial(row)});
        for (int col = 1; col < grid.Cols(); ++col) cells.push_back({sheetRow, col, grid.Cell(row, col)});
    }
    cells.push_back({grid.Rows() + kRowsAboveTheTable, 0, u"END"});
}

// What the choice of an instrument changes; puts it back whole, so that no view sees that it was away.
class ChoiceAsItWas {
  public:
    explicit ChoiceAsItWas(MainForm& form)
        : form_(form),
          names_(form.InstrumentList()),
          sentFrames_(form.SentFrames()),
          dataTypes_(form.ConDataTypeList),
          grid_(form.ParameterGrid()),
          limits_(form.Limits),
          meterCodeText_(form.MeterCodeText),
          staticSample_(form.StaticSample),
          dynamicSample_(form.DynamicSample),
          protocolCode_(form.ProtocolCode),
          firstDataRow_(form.FirstDataRow),
          currentRow_(form.CurrentRow),
          focus_(form.Focus) {}
    ChoiceAsItWas(const ChoiceAsItWas&) = delete;
    ChoiceAsItWas& operator=(const ChoiceAsItWas&) = delete;
    ~ChoiceAsItWas() {
        form_.InstrumentList() = std::move(names_);
        form_.SentFrames() = std::move(sentFrames_);
        form_.ConDataTypeList = std::move(dataTypes_);
        form_.ParameterGrid() = std::move(grid_);
        form_.Limits = std::move(limits_);
        form_.MeterCodeText = std::move(meterCodeText_);
        form_.StaticSample = std::move(staticSample_);
        form_.DynamicSample = std::move(dynamicSample_);
        form_.ProtocolCode = protocolCode_;
        form_.FirstDataRow = firstDataRow_;
        form_.CurrentRow = currentRow_;
        form_.Focus = focus_;
    }

    const std::vector<Text>& Names() const { return names_.Items(); }

  private:
    MainForm& form_;
    ListControl names_;
    ListControl sentFrames_;
    ListControl dataTypes_;
    Grid grid_;
    std::vector<ParameterLimits> limits_;
    Text meterCodeText_;
    HexText staticSample_;
    HexText dynamicSample_;
    std::int16_t protocolCode_;
    std::int16_t firstDataRow_;
    std::int16_t currentRow_;
    FocusWish focus_;
};

InstrumentSheet TakeSheet(MainForm& form, const Text& name) {
    InstrumentSheet sheet{name, SpreadsheetFileName(name)};
    form.InstrumentList().Set(name);
    try {
        ConMeterName_Click(form);
        sheet.cells = SpreadsheetCells(form);
    } catch (const RuntimeError& error) {
        sheet.failure = error;
    }
    return sheet;
}

}  // namespace

Text SpreadsheetFileName(const Text& instrument) {
    Text name = instrument;
    std::replace(name.begin(), name.end(), u'/', u'-');  // Q227
    return name.append(kSpreadsheetTemplateName);
}

std::vector<SheetCell> SpreadsheetCells(const MainForm& form) {
    std::vector<SheetCell> cells;
    Text protocol(u"通讯协议:  ");
    Text device(u"Device  ");
    cells.push_back({2, 0, protocol.append(form.ConCommTypeList.Value())});
    cells.push_back({3, 0, device.append(form.InstrumentName())});
    AddTable(form.ParameterGrid(), cells);
    return cells;
}

InstrumentSheet LoadInstrumentSheet(MainForm& form) {
    ConMeterName_Click(form);  // Q226
    const Text& name = form.InstrumentName();
    return {name, SpreadsheetFileName(name), SpreadsheetCells(form)};
}

std::vector<InstrumentSheet> CollectInstrumentSheets(MainForm& form) {
    const ChoiceAsItWas choice(form);
    std::vector<InstrumentSheet> sheets;
    for (const Text& name : choice.Names()) sheets.push_back(TakeSheet(form, name));
    return sheets;
}

}  // namespace commtest
