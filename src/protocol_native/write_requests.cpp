#include "protocol_native/write_requests.h"

#include "numbers/register_codecs.h"
#include "protocol_native/check_words.h"
#include "protocol_native/read_requests.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"
#include "session/main_form.h"

namespace commtest {

namespace {

// The entry as the instrument's integer; the cell keeps it as typed.
Text TakeEntry(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    Text value = form.InputText.Value();
    grid.SetCell(grid.Row, grid.Col, value);
    if (grid.Cell(grid.Row, column::kDecimals) != u"0") ApplyDecimalPoint(form, grid.Row, value, false);
    return value;
}

Text CodeTextOf(Text value, const Text& length) {
    ValueToCommCode(value, WriteFormatOfLength(length));
    return value;
}

void CloseFrame(MainForm& form, void (*makeCheckWord)(HexText&)) {
    form.SendText = u" 40" + form.AddressText + HexTextOfReadable(form.SendText);
    makeCheckWord(form.SendText);
    form.SendText += u" 0D";
}

// The command digit in the length column decides. An unknown digit leaves the former frame standing, which is
// then converted once more: the garbage that goes out is what these instruments have always been sent.
void PutCommand(MainForm& form, const Text& digit, Text value) {
    if (digit == u"3" || digit == u"4") form.SendText = u"W" + digit;
    if (digit == u"5") {
        ValueToCommCode(value, register_format::kSignMagnitudeSwapped);
        form.SendText = u"W5" + value;
    }
}

}  // namespace

void BuildTqWriteRequest(MainForm& form) {
    const Text value = TakeEntry(form);
    const Grid& grid = form.ParameterGrid();
    const Text& address = grid.Cell(grid.Row, column::kAddress);
    const Text& length = grid.Cell(grid.Row, column::kLength);
    if (address == kCommandAddress) {
        PutCommand(form, length, value);
    } else {
        form.SendText = u"W" + length + address + CodeTextOf(value, length);
    }
    CloseFrame(form, MakeCRCWordTq);
    form.InputText.SetVisible(false);
    if (form.ProtocolCode == 13) FillFrameEnd(form);
}

void BuildTqWriteRequestTwo(MainForm& form) {
    const Text value = TakeEntry(form);
    const Grid& grid = form.ParameterGrid();
    const Text& address = grid.Cell(grid.Row, column::kAddress);
    const Text& length = grid.Cell(grid.Row, column::kLength);
    form.SendText = u"W" + address + u"0" + length + CodeTextOf(value, length);
    CloseFrame(form, MakeCRCWordTqTwo);
    form.InputText.SetVisible(false);
}

}  // namespace commtest
