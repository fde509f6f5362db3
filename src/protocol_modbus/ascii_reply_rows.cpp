#include "protocol_modbus/ascii_reply_rows.h"

#include <algorithm>
#include <cmath>

#include "protocol_modbus/ratio_row.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

// The digits between the byte count and the check word.
Text DataDigits(const HexText& reply) {
    constexpr int kDataPosition = 22;
    constexpr int kCheckWordAndLineEnd = 12;
    constexpr int kAround = kDataPosition - 1 + kCheckWordAndLineEnd;
    return ReadableOf(Mid(reply, kDataPosition, Len(reply) - kAround));
}

bool TakesLowBytes(const Grid& grid, int row) { return grid.Cell(row, column::kAttribute) == u"RW"; }

Text NoteOn(const Grid& grid, int row) {
    if (!TakesLowBytes(grid, row)) return {};
    return IsRatioRow(grid, row) ? u"取3 4 7 8这4个字符  " : u"取最后两个字符  ";
}

// Moves a row's share of the data into its cells; gives the digits that count.
Text TakeDigits(Grid& grid, int row, Text& data) {
    const Text digits = Left(data, Whole16(2 * ToNumber(grid.Cell(row, column::kLength))));
    data.erase(0, digits.size());
    grid.SetCell(row, column::kSingleRead, digits);
    const Text counting = CountingDigits(grid, row, digits);
    grid.SetCell(row, column::kGroupRead, NoteOn(grid, row) + counting);
    return counting;
}

void FillRow(Grid& grid, int row, const Text& digits) {
    const std::int32_t value = HexParse(digits);
    grid.SetCell(row, column::kValue, WholeText(value));
    grid.SetCell(row, column::kScaledValue, ShownAsciiValue(grid, row, value));
}

void FillRowTwo(Grid& grid, int row, const Text& digits) {
    constexpr int kSign = 8;
    const std::int32_t value = ToWhole32(Mid(digits, 3));  // Q158: of a row "RW" no number
    grid.SetCell(row, column::kValue, WholeText(value));
    const int head = HexParse(Mid(digits, 2, 1));
    const int decimals = head % kSign;
    const Text scaled = FixedTextWithZero(value / std::pow(10.0, decimals), decimals);
    grid.SetCell(row, column::kScaledValue, head >= kSign ? u"-" + scaled : scaled);
}

void Walk(Conversation& talk, const HexText& reply, void (*fillRow)(Grid&, int, const Text&),
          int mostLeftOver) {
    Text data = DataDigits(reply);
    Grid& grid = talk.ParameterGrid();
    // Q159: from wherever CurrentRow stands.
    for (int row = talk.CurrentRow; row < grid.Rows(); ++row) {
        talk.FilledRows.Add(row);
        fillRow(grid, row, TakeDigits(grid, row, data));
        if (Len(data) > mostLeftOver) continue;  // Q156
        talk.CurrentRow = Whole16(row + 1);
        break;
    }
    if (talk.CommandCode != command::kReadSeveralRows) KeepRowInView(talk);
}

}  // namespace

// Q155: of a row "RW" not all of them.
Text CountingDigits(const Grid& grid, int row, const Text& digits) {
    if (!TakesLowBytes(grid, row)) return digits;
    return IsRatioRow(grid, row) ? Mid(digits, 3, 2) + Mid(digits, 7) : Right(digits, 2);
}

Text ShownAsciiValue(const Grid& grid, int row, std::int32_t value) {
    constexpr double kMostShown = 3;  // Q157
    const double decimals = std::floor(ToNumber(grid.Cell(row, column::kDecimals)));
    if (decimals < 0) throw RuntimeError(RuntimeError::kInvalidArgument);
    const double scaled = value / Finite(std::pow(10.0, decimals));
    return GroupedText(scaled, static_cast<int>(std::min(decimals, kMostShown)));
}

void DecodeAsciiRows(Conversation& talk, const HexText& reply) { Walk(talk, reply, FillRow, 9); }

void DecodeAsciiRowsTwo(Conversation& talk, const HexText& reply) { Walk(talk, reply, FillRowTwo, 4); }

}  // namespace commtest
