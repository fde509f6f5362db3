#include "protocol_modbus/read_operation.h"

#include <algorithm>
#include <cmath>

#include "host/clock.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

ReadOperation TakeReadOperation(Operation& operation) {
    using namespace command;
    std::int32_t& code = operation.CommandCode;
    // Q116: 40 and 50 alike.
    if ((code >= 0 && code <= kReadRowByRow) || code > kSearchOffset) return ReadOperation::SingleRow;
    if (code == kReadSeveralRows) return ReadOperation::SeveralRows;
    if (code == kReadBoardType) return ReadOperation::BoardType;
    if (code == kTestFixedFrame) return ReadOperation::FixedTest;
    if (code == kTestRisingFrame) return ReadOperation::RisingTest;
    if (code > kWriteOffset) code %= kWriteOffset;
    return ReadOperation::Nothing;
}

void PrepareRowForRead(ParameterRows& rows) {
    Grid& grid = rows.ParameterGrid();
    if (rows.CurrentRow >= grid.Rows() || rows.CurrentRow < kFirstModbusRow)
        rows.CurrentRow = kFirstModbusRow;
    grid.SetCell(rows.CurrentRow, column::kSingleRead, Text());
}

std::int16_t TakeReadLimit(const Operation& operation, Clock& clock) {
    const std::int16_t limit = ToWhole16(operation.ConDataNub.Value());
    return operation.Check2.Value() ? Whole16(std::floor(clock.Random() * limit)) : limit;
}

Text ZeroToppedAddress(const Text& address) { return u"0" + Mid(address, 2); }  // Q112

// Q117: the first digit of the row before is dropped, that of the row itself is kept.
bool RowRunsOn(const Grid& grid, int row, double step) {
    TextView above = grid.Cell(row - 1, column::kAddress);
    above.remove_prefix(std::min<std::size_t>(above.size(), 1));
    const auto before = HexParse(above);
    return before + step == HexParse(grid.Cell(row, column::kAddress));
}

}  // namespace commtest
