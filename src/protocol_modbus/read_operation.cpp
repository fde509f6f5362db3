#include "protocol_modbus/read_operation.h"

#include <cmath>

#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

ReadOperation TakeReadOperation(MainForm& form) {
    using namespace command;
    std::int32_t& code = form.CommandCode;
    if ((code >= 0 && code <= kReadRowByRow) || code > kSearchOffset) return ReadOperation::SingleRow;
    if (code == kReadSeveralRows) return ReadOperation::SeveralRows;
    if (code == kReadBoardType) return ReadOperation::BoardType;
    if (code == kTestFixedFrame) return ReadOperation::FixedTest;
    if (code == kTestRisingFrame) return ReadOperation::RisingTest;
    if (code > kWriteOffset) code %= kWriteOffset;
    return ReadOperation::Nothing;
}

void PrepareRowForRead(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    if (form.CurrentRow >= grid.Rows() || form.CurrentRow < kFirstModbusRow)
        form.CurrentRow = kFirstModbusRow;
    grid.SetCell(form.CurrentRow, column::kSingleRead, Text());
}

std::int16_t TakeReadLimit(MainForm& form) {
    const std::int16_t limit = ToWhole16(form.ConDataNub.Value());
    return form.Check2.Value() ? Whole16(std::floor(form.clock.Random() * limit)) : limit;
}

Text ZeroToppedAddress(const Text& address) { return u"0" + Mid(address, 2); }

// Lopsided: the first digit of the row before is dropped and that of the row itself kept, so that rows run on
// only at addresses that begin with 0. The instruments' users rely on the counts that come of it.
bool RowRunsOn(const Grid& grid, int row, double step) {
    const auto before = HexParse(Mid(grid.Cell(row - 1, column::kAddress), 2));
    return before + step == HexParse(grid.Cell(row, column::kAddress));
}

}  // namespace commtest
