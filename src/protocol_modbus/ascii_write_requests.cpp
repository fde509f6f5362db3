#include "protocol_modbus/ascii_write_requests.h"

#include <cmath>

#include "host/dialogs.h"
#include "protocol_modbus/ascii_frame.h"
#include "protocol_modbus/ratio_row.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr TextView kFirstHalfMessage =
    u"参数占用了4个字节的地址,现修改头两个字节,随后请再操作一次,修改方可全部完成！";

// The entry as the digits of the frame; the cell keeps it as typed.
Text TakeEntry(Conversation& talk) {
    Grid& grid = talk.ParameterGrid();
    grid.SetCell(grid.Row, grid.Col, talk.InputText.Value());
    return DigitsOfAsciiEntry(talk, grid.Row, talk.InputText.Value());
}

Text FirstHalf(Dialogs& dialogs, const Text& address, const Text& digits) {
    dialogs.ShowAdvice(Text(kFirstHalfMessage));
    return u"06" + address + u"00" + Mid(digits, 5, 2);  // Q149: the first two bytes do not travel
}

// Q148: the address is not filled.
Text SecondHalf(const Text& address, const Text& digits) {
    return u"060" + HexOf(HexParse(address) + 1.0) + u"00" + Mid(digits, 7, 2);
}

Text TakeHalf(HalfWrites& halves, Dialogs& dialogs, const Text& address, const Text& digits) {
    const bool isSecond = halves.AsciiSecondHalfPending;
    const Text data = isSecond ? SecondHalf(address, digits) : FirstHalf(dialogs, address, digits);
    halves.AsciiSecondHalfPending = !isSecond;  // Q124: in whatever row
    return data;
}

}  // namespace

Text DigitsOfAsciiEntry(const Conversation& talk, int row, const Text& entry) {
    const Grid& grid = talk.ParameterGrid();
    // Q84: the count itself.
    const double decimals = std::floor(ToNumber(grid.Cell(row, column::kDecimals)));
    const double value = Finite(ToNumber(entry) * Finite(std::pow(10.0, decimals)));
    const double length = std::floor(ToNumber(grid.Cell(row, column::kLength)));
    return FittedToWidth(HexOf(value), Whole16(2 * length));
}

void BuildAsciiWrite(Conversation& talk, Dialogs& dialogs) {
    const Text digits = TakeEntry(talk);
    const Grid& grid = talk.ParameterGrid();
    const Text address = grid.Cell(grid.Row, column::kAddress);
    const Text data =
        IsRatioRow(grid, grid.Row) ? TakeHalf(talk, dialogs, address, digits) : u"06" + address + digits;
    talk.SendText = AsciiWriteFrame(talk.AddressText + data);
    talk.InputText.SetVisible(false);
    talk.CommandCode = command::kReadSeveralRows;  // Q150
}

}  // namespace commtest
