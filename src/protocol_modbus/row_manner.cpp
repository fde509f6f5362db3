#include "protocol_modbus/row_manner.h"

#include "protocol_modbus/read_operation.h"
#include "protocol_modbus/rtu_value.h"
#include "session/conversation.h"
#include "session/decimal_point.h"

namespace commtest {

namespace {

std::int16_t FirstRow(const Conversation&) { return kFirstModbusRow; }

Unreadable WhyUnreadable(const Conversation&, int row) {
    return row < kFirstModbusRow ? Unreadable::Fixed : Unreadable::No;
}

int OwnDecimals(const Conversation&, int) { return 0; }

bool MayHoldDecimals(const Grid& grid, int row) { return grid.Cell(row, column::kAttribute) != u"S"; }

int DecimalsRow(const Conversation& talk, int row) {
    return RowAtDecimalsAddress(talk.ParameterGrid(), row, MayHoldDecimals);
}

bool ShowsConstant(const Conversation& talk, int row) {
    return ShowsConstant(talk, talk.ParameterGrid().Cell(row, column::kSingleRead));
}

}  // namespace

const RowManner kAsciiRowManner = {FirstRow, WhyUnreadable, OwnDecimals};
const RowManner kRtuRowManner = {FirstRow, WhyUnreadable, DecimalsRow, ShowsConstant};

}  // namespace commtest
