#include "protocol_native/write_requests.h"

#include "numbers/register_codecs.h"
#include "protocol_native/check_words.h"
#include "protocol_native/read_requests.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"

namespace commtest {

namespace {

// The entry as the instrument's integer; the cell keeps it as typed.
Text TakeEntry(Conversation& talk) {
    Grid& grid = talk.ParameterGrid();
    Text value = talk.InputText.Value();
    grid.SetCell(grid.Row, grid.Col, value);
    if (grid.Cell(grid.Row, column::kDecimals) != u"0") ApplyDecimalPoint(grid, grid.Row, value, false);
    return value;
}

Text CodeTextOf(Text value, const Text& length) {
    ValueToCommCode(value, WriteFormatOfLength(length));  // Q104: of another length it stays as typed
    return value;
}

void CloseFrame(Conversation& talk, void (*makeCheckWord)(HexText&)) {
    talk.SendText = u" 40" + talk.AddressText + HexTextOfReadable(talk.SendText);
    makeCheckWord(talk.SendText);
    talk.SendText += u" 0D";
}

// The command digit in the length column decides. Q103: an unknown one leaves the former frame standing,
// which is then converted once more.
void PutCommand(Conversation& talk, const Text& digit, Text value) {
    if (digit == u"3" || digit == u"4") talk.SendText = u"W" + digit;
    if (digit == u"5") {
        ValueToCommCode(value, register_format::kSignMagnitudeSwapped);
        talk.SendText = u"W5" + value;
    }
}

}  // namespace

void BuildTqWriteRequest(Conversation& talk, Dialogs&) {
    const Text value = TakeEntry(talk);
    const Grid& grid = talk.ParameterGrid();
    const Text& address = grid.Cell(grid.Row, column::kAddress);
    const Text& length = grid.Cell(grid.Row, column::kLength);
    if (address == kCommandAddress) {
        PutCommand(talk, length, value);
    } else {
        talk.SendText = u"W" + length + address + CodeTextOf(value, length);
    }
    CloseFrame(talk, MakeCRCWordTq);
    talk.InputText.SetVisible(false);
    if (talk.ProtocolCode == 13) FillFrameEnd(talk);  // Q90: though code 13 has no write
}

void BuildTqWriteRequestTwo(Conversation& talk, Dialogs&) {
    const Text value = TakeEntry(talk);
    const Grid& grid = talk.ParameterGrid();
    const Text& address = grid.Cell(grid.Row, column::kAddress);
    const Text& length = grid.Cell(grid.Row, column::kLength);
    talk.SendText = u"W" + address + u"0" + length + CodeTextOf(value, length);
    CloseFrame(talk, MakeCRCWordTqTwo);
    talk.InputText.SetVisible(false);
}

}  // namespace commtest
