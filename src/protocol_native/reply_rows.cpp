#include "protocol_native/reply_rows.h"

#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"

namespace commtest {

namespace {

constexpr int kFirstDynamicRow = 6;
constexpr TextView kContinueByte = u" 0A";

// Takes the walk to its first row and gives the column that the raw text goes to. A write's answer ("##",
// "**") carries no data: its walk blanks column 0 of the row and puts the value of nothing beside it (Q105).
int BeginWalk(Conversation& talk, const HexText& reply) {
    const HexText word = Mid(reply, 10, 6);
    if (word == u" 52 52") {
        if (talk.SendText != kContinueByte) talk.CurrentRow = talk.FirstDataRow;
        if (talk.StaticSample.empty()) talk.StaticSample = reply;
        return column::kGroupRead;
    }
    if (word == u" 52 44") {
        talk.CurrentRow = kFirstDynamicRow;  // Q108: of every part
        if (talk.DynamicSample.empty()) talk.DynamicSample = reply;
        return column::kGroupRead;
    }
    return word == u" 52 45" ? column::kSingleRead : column::kNumber;
}

// The data characters: behind address and command word, before the check word, whose line end counts as three
// characters (Q1). Code 13 drops its fill (Q92), of its smallest reply more than there is (Q93).
Text DataText(int protocolCode, const HexText& reply) {
    const Text shown = ReadableOf(reply);
    const bool hasFill = protocolCode != 11 && protocolCode != 12;
    return Mid(shown, 6, Len(shown) - (hasFill ? 12 : 10));
}

Text LeadLetter(const Grid& grid, int row) { return Left(grid.Cell(row, column::kAttribute), 1); }

// Puts the row's share into its cells: the first characters of the data, which then hold the rest.
void FillRow(Grid& grid, int row, int destination, Text& data) {
    const Text& length = grid.Cell(row, column::kLength);
    Text value = Left(data, Whole32(2 * ToNumber(length)));  // Q97: decimal here
    data.erase(0, value.size());
    grid.SetCell(row, destination, value);
    CommCodeToValue(value, ReadFormatOfLength(length));
    grid.SetCell(row, column::kValue, value);
    if (grid.Cell(row, column::kDecimals) != u"0") ApplyDecimalPoint(grid, row, value, true);
    grid.SetCell(row, column::kScaledValue, value);
}

bool BothReadsStand(const Conversation& talk) {
    const Grid& grid = talk.ParameterGrid();
    return !grid.Cell(talk.CurrentRow, column::kSingleRead).empty() &&
           !grid.Cell(talk.CurrentRow, column::kGroupRead).empty();
}

}  // namespace

void DecodeTqReplyRows(Conversation& talk, const HexText& reply) {
    const int destination = BeginWalk(talk, reply);
    Text data = DataText(talk.ProtocolCode, reply);
    Grid& grid = talk.ParameterGrid();
    grid.Redraw = false;
    const int start = talk.CurrentRow;
    for (int row = start; row < grid.Rows(); ++row) {
        const bool travelsAlong = grid.Cell(row, column::kAttribute) == u"S";
        if (row != start && !travelsAlong && LeadLetter(grid, row) != LeadLetter(grid, start)) {
            talk.CurrentRow = Whole16(row);  // Q109: of a fixed read, too
            break;
        }
        FillRow(grid, row, destination, data);
        talk.FilledRows.Add(row);
        if (talk.CommandCode == command::kReadRowByRow && BothReadsStand(talk)) MarkReadMismatch(talk);
        if (talk.CommandCode != command::kReadThisRow) talk.CurrentRow = Whole16(row + 1);
        if (data.empty()) break;
    }
    grid.Redraw = true;
}

void MarkReadMismatch(Conversation& talk) {
    Grid& grid = talk.ParameterGrid();
    grid.Redraw = false;
    grid.Select(talk.CurrentRow, column::kSingleRead);  // Q110
    const bool differ =
        grid.Cell(talk.CurrentRow, column::kSingleRead) != grid.Cell(talk.CurrentRow, column::kGroupRead);
    grid.SetCellColour(talk.CurrentRow, column::kSingleRead, differ ? kLightRed : kWindowBackground);
    grid.Redraw = true;
}

}  // namespace commtest
