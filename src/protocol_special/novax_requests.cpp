#include "protocol_special/novax_requests.h"

#include "numbers/register_codecs.h"
#include "protocol_special/novax_check_word.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"

namespace commtest {

namespace {

constexpr TextView kRead = u" 52 ";
constexpr TextView kWrite = u" 43 ";

void Compose(Conversation& talk, TextView command, int row, const HexText& data) {
    const Text number = Mid(talk.ParameterGrid().Cell(row, column::kAddress), 3);
    talk.SendText = talk.AddressText + Text(command) + number + data;
    MakeCRCWordNOVAX(talk.SendText, talk.ConMeterAddr.Value());
}

void BuildParameterRead(Conversation& talk) {
    Grid& grid = talk.ParameterGrid();
    if (talk.CurrentRow > LastRow(grid) || talk.CurrentRow < kFirstNovaxRow) talk.CurrentRow = kFirstNovaxRow;
    Compose(talk, kRead, talk.CurrentRow, u" 00 00");
    grid.SetCell(talk.CurrentRow, column::kGroupRead, Text());
}

void BuildByCommandCode(Conversation& talk) {
    std::int32_t& code = talk.CommandCode;
    if (code > command::kWriteOffset && code <= command::kSearchOffset) {
        code %= command::kWriteOffset;  // SendText holds the frame of a write, which goes out now
    } else if (code >= 1) {
        BuildParameterRead(talk);
    }
}

}  // namespace

void BuildNovaxReadRequest(Conversation& talk, Clock&) {
    talk.ParameterGrid().Redraw = false;
    BuildByCommandCode(talk);
    talk.ParameterGrid().Redraw = true;
}

void BuildNovaxWriteRequest(Conversation& talk, Dialogs&) {
    Grid& grid = talk.ParameterGrid();
    Text value = talk.InputText.Value();
    grid.SetCell(grid.Row, grid.Col, value);
    if (grid.Cell(grid.Row, column::kDecimals) != u"0") ApplyDecimalPoint(grid, grid.Row, value, false);
    const Text code = NovaxCodeOf(talk, value);
    Compose(talk, kWrite, grid.Row, u" " + Mid(code, 3, 2) + u" " + Mid(code, 1, 2));
    talk.InputText.SetVisible(false);
}

Text NovaxCodeOf(const InstrumentInUse& instrument, Text digits) {
    ValueToCommCode(digits, FormatOfInstrument(instrument));
    return digits;
}

}  // namespace commtest
