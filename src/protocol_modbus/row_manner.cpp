#include "protocol_modbus/row_manner.h"

#include "protocol_modbus/ascii_reply_rows.h"
#include "protocol_modbus/ascii_write_requests.h"
#include "protocol_modbus/decimal_row.h"
#include "protocol_modbus/ratio_row.h"
#include "protocol_modbus/read_operation.h"
#include "protocol_modbus/rtu_value.h"
#include "protocol_modbus/rtu_write_requests.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/instrument_codec.h"

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
    const Grid& grid = talk.ParameterGrid();
    const bool isFourBytes = grid.Cell(row, column::kLength) == u"4";
    const Text code = isFourBytes ? Text(8, u'0') : grid.Cell(row, column::kSingleRead);
    return ShowsConstant(talk, code);
}

Text Scaled(const Conversation& talk, int row, const Text& value, bool divide) {
    const Grid& grid = talk.ParameterGrid();
    return grid.Cell(row, column::kDecimals) == u"0" ? value : WithDecimalRow(grid, row, value, divide);
}

Text WithReferencedDecimals(const Conversation& talk, int row, const Text& digits) {
    return Scaled(talk, row, digits, true);
}

Text DigitsOfRtuEntry(const Conversation& talk, int row, const Text& entry) {
    return Scaled(talk, row, entry, false);
}

int FormatOfRtuRow(const Conversation& talk, int) { return FormatOfInstrument(talk); }

Text ValueOfRtuCode(const Conversation& talk, int row, const Text& code) {
    Text value = code;
    DecodeRtuValue(talk, value);
    return Scaled(talk, row, value, true);
}

Text ValueOfAsciiDigits(const Conversation& talk, int row, const Text& digits) {
    const Grid& grid = talk.ParameterGrid();
    return ShownAsciiValue(grid, row, HexParse(CountingDigits(grid, row, digits)));
}

// A ratio travels as the low bytes of two words.
Text CodeOfAsciiEntry(const Conversation& talk, int row, const Text& entry) {
    const Text digits = DigitsOfAsciiEntry(talk, row, entry);
    if (!IsRatioRow(talk.ParameterGrid(), row)) return digits;
    return u"00" + Mid(digits, 5, 2) + u"00" + Mid(digits, 7, 2);
}

Text WithOwnDecimals(const Conversation& talk, int row, const Text& digits) {
    return ShownAsciiValue(talk.ParameterGrid(), row, ToWhole32(digits));
}

constexpr RowManner RtuRowManner(Text (*codeOf)(const Conversation&, int, const Text&)) {
    return {.firstRow = FirstRow,
            .whyUnreadable = WhyUnreadable,
            .decimalsRow = DecimalsRow,
            .showsConstant = ShowsConstant,
            .codeOf = codeOf,
            .valueOf = ValueOfRtuCode,
            .withDecimals = WithReferencedDecimals,
            .formatOf = FormatOfRtuRow,
            .digitsOf = DigitsOfRtuEntry};
}

}  // namespace

const RowManner kAsciiRowManner = {.firstRow = FirstRow,
                                   .whyUnreadable = WhyUnreadable,
                                   .decimalsRow = OwnDecimals,
                                   .codeOf = CodeOfAsciiEntry,
                                   .valueOf = ValueOfAsciiDigits,
                                   .withDecimals = WithOwnDecimals};
const RowManner kRtuRowManner = RtuRowManner(CodeOfRtuEntry);
const RowManner kRtuFlowRowManner = RtuRowManner(CodeOfRtuFlowEntry);

}  // namespace commtest
