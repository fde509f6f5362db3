#include "protocol_native/reply_rows.h"

#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kFirstDynamicRow = 6;
constexpr TextView kContinueByte = u" 0A";

// Takes the walk to its first row and gives the column that the raw text goes to. A write's answer ("##",
// "**") carries no data: its walk blanks column 0 of the row and puts the value of an empty text beside it.
int BeginWalk(MainForm& form) {
    const HexText word = Mid(form.ReplyText, 10, 6);
    if (word == u" 52 52") {
        if (form.SendText != kContinueByte) form.CurrentRow = form.FirstDataRow;
        if (form.StaticSample.empty()) form.StaticSample = form.ReplyText;
        return column::kGroupRead;
    }
    if (word == u" 52 44") {
        form.CurrentRow = kFirstDynamicRow;
        if (form.DynamicSample.empty()) form.DynamicSample = form.ReplyText;
        return column::kGroupRead;
    }
    return word == u" 52 45" ? column::kSingleRead : column::kNumber;
}

// The data characters: behind address and command word, before the check word, whose line end counts as three
// characters. Code 13 drops two more, its fill.
Text DataText(const MainForm& form) {
    const Text shown = ReadableOf(form.ReplyText);
    const bool hasFill = form.ProtocolCode != 11 && form.ProtocolCode != 12;
    return Mid(shown, 6, Len(shown) - (hasFill ? 12 : 10));
}

Text LeadLetter(const Grid& grid, int row) { return Left(grid.Cell(row, column::kAttribute), 1); }

// Puts the row's share into its cells: the first characters of the data, which then hold the rest.
void FillRow(MainForm& form, int row, int destination, Text& data) {
    Grid& grid = form.ParameterGrid();
    const Text& length = grid.Cell(row, column::kLength);
    Text value = Left(data, Whole32(2 * ToNumber(length)));
    data.erase(0, value.size());
    grid.SetCell(row, destination, value);
    CommCodeToValue(value, ReadFormatOfLength(length));
    grid.SetCell(row, column::kValue, value);
    if (grid.Cell(row, column::kDecimals) != u"0") ApplyDecimalPoint(form, row, value, true);
    grid.SetCell(row, column::kScaledValue, value);
}

bool BothReadsStand(const MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    return !grid.Cell(form.CurrentRow, column::kSingleRead).empty() &&
           !grid.Cell(form.CurrentRow, column::kGroupRead).empty();
}

}  // namespace

void DecodeTqReplyRows(MainForm& form) {
    const int destination = BeginWalk(form);
    Text data = DataText(form);
    Grid& grid = form.ParameterGrid();
    grid.Redraw = false;
    const int start = form.CurrentRow;
    for (int row = start; row < grid.Rows(); ++row) {
        const bool travelsAlong = grid.Cell(row, column::kAttribute) == u"S";
        if (row != start && !travelsAlong && LeadLetter(grid, row) != LeadLetter(grid, start)) {
            form.CurrentRow = Whole16(row);
            break;
        }
        FillRow(form, row, destination, data);
        if (form.CommandCode == command::kReadRowByRow && BothReadsStand(form)) MarkReadMismatch(form);
        if (form.CommandCode != command::kReadThisRow) form.CurrentRow = Whole16(row + 1);
        if (data.empty()) break;
    }
    grid.Redraw = true;
}

void MarkReadMismatch(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    grid.Redraw = false;
    grid.Select(form.CurrentRow, column::kSingleRead);
    const bool differ =
        grid.Cell(form.CurrentRow, column::kSingleRead) != grid.Cell(form.CurrentRow, column::kGroupRead);
    grid.SetCellColour(form.CurrentRow, column::kSingleRead, differ ? kLightRed : kWindowBackground);
    grid.Redraw = true;
}

}  // namespace commtest
