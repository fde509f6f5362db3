#include "protocol_modbus/rtu_write_requests.h"

#include "host/dialogs.h"
#include "protocol_modbus/decimal_row.h"
#include "protocol_modbus/rtu_frame.h"
#include "protocol_modbus/rtu_value.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr TextView kWriteOne = u" 06 ";
constexpr TextView kWriteSeveral = u" 10 ";

namespace write_type {
constexpr int kTwoBytes = 0;
constexpr int kFourBytes = 1;
constexpr int kSeveral = 2;
}  // namespace write_type

const Text& CellOfRow(const Conversation& talk, int col) {
    const Grid& grid = talk.ParameterGrid();
    return grid.Cell(grid.Row, col);
}

Text CodeOf(const Conversation& talk, int row, Text value) {
    const Grid& grid = talk.ParameterGrid();
    if (grid.Cell(row, column::kDecimals) != u"0") value = WithDecimalRow(grid, row, std::move(value), false);
    EncodeRtuValue(talk, value);
    return value;
}

// The entry as code text; the cell keeps it as typed.
Text TakeEntry(Conversation& talk) {
    Grid& grid = talk.ParameterGrid();
    grid.SetCell(grid.Row, grid.Col, talk.InputText.Value());
    return CodeOf(talk, grid.Row, talk.InputText.Value());
}

// Bytes of a code text, `first` counting from 1, each behind a blank.
HexText Bytes(const Text& code, int first, int count) {
    HexText bytes;
    for (int byte = first; byte < first + count; ++byte) bytes += u" " + Mid(code, 2 * byte - 1, 2);
    return bytes;
}

// Q122: the code need not fit the length.
HexText DataOfLength(const Text& code, const Text& length) {
    if (length == u"1") return u" " + code;
    if (length == u"2") return Bytes(code, 1, 2);
    if (length == u"4") return Bytes(code, 1, 4);
    return code;
}

void Compose(Conversation& talk, TextView function, const Text& address, const HexText& data) {
    talk.SendText = talk.AddressText + Text(function) + SplitAddress(address) + data;
}

Text NextAddress(const Text& address) {
    return FittedToWidth(HexOf(static_cast<double>(HexParse(address)) + 1), 4);
}

Text AdviceOnFirstHalf(const Conversation& talk) {
    if (!talk.switches.multiRegisterWrite) return u" 参数占用了4个字节的地址,所以请再操作一次,修改方可完成！";
    return u"由于 " + CellOfRow(talk, column::kName) +
           u" 参数占用了4个字节的地址,所以修改完成后,请再操作一次,修改方可全部完成！";
}

// Q124: the second entry gives the second word, of whatever row it is made in.
void ComposeNextHalf(Conversation& talk, Dialogs& dialogs, const Text& code) {
    const Text& address = CellOfRow(talk, column::kAddress);
    if (talk.SecondHalfPending) {
        Compose(talk, kWriteOne, NextAddress(address), Bytes(code, 3, 2));
    } else {
        dialogs.ShowAdvice(AdviceOnFirstHalf(talk));
        Compose(talk, kWriteOne, address, Bytes(code, 1, 2));
    }
    talk.SecondHalfPending = !talk.SecondHalfPending;
}

void ComposeByWriteType(Conversation& talk, Dialogs& dialogs, const Text& code) {
    // Q233: whatever is chosen.
    if (!talk.switches.multiRegisterWrite) return ComposeNextHalf(talk, dialogs, code);
    const Text& address = CellOfRow(talk, column::kAddress);
    const HexText data = Bytes(code, 1, 4);
    switch (talk.WriteType.Chosen()) {
        case write_type::kTwoBytes: return ComposeNextHalf(talk, dialogs, code);
        case write_type::kFourBytes: return Compose(talk, kWriteOne, address, data);
        case write_type::kSeveral: return Compose(talk, kWriteSeveral, address, u" 00 02 04" + data);
        default: return;
    }
}

void CloseWrite(Conversation& talk) {
    AppendRtuCrc(talk.SendText);
    talk.InputText.SetVisible(false);
}

}  // namespace

// Q121: function 06 goes out whatever the length.
void BuildRtuWrite(Conversation& talk, Dialogs&) {
    const Text code = TakeEntry(talk);
    const HexText data = DataOfLength(code, CellOfRow(talk, column::kLength));
    Compose(talk, kWriteOne, CellOfRow(talk, column::kAddress), data);
    CloseWrite(talk);
}

// Q123: a row of another length composes nothing, the frame left standing gains two bytes.
void BuildRtuWriteFlow(Conversation& talk, Dialogs& dialogs) {
    const Text code = TakeEntry(talk);
    if (CellOfRow(talk, column::kLength) == u"4") ComposeByWriteType(talk, dialogs, code);
    CloseWrite(talk);
}

Text CodeOfRtuEntry(const Conversation& talk, int row, const Text& entry) {
    const Text code = CodeOf(talk, row, entry);
    const Text& length = talk.ParameterGrid().Cell(row, column::kLength);
    if (length == u"2") return Left(code, 4);
    return length == u"4" ? Left(code, 8) : code;
}

Text CodeOfRtuFlowEntry(const Conversation& talk, int row, const Text& entry) {
    return Left(CodeOf(talk, row, entry), 8);
}

}  // namespace commtest
