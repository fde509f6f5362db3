#include "protocol_native/read_requests.h"

#include <algorithm>
#include <cmath>

#include "protocol_native/check_words.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr TextView kReadDynamicWord = u" 52 44";  // RD
constexpr TextView kReadStaticWord = u" 52 52";   // RR

// What the two layouts of the address column differ in. The plain one (codes 11 and 13) has four address
// characters in column 2 and the length in column 3; the other (code 12) has a length character and three
// address characters in column 2.
struct Layout {
    void (*makeCheckWord)(HexText&);
    Text (*addressOf)(const Text& column2);                // address characters of a request
    Text (*lengthOf)(const Grid& grid, int row);           // a row's length, hexadecimal
    Text (*lengthCharacterOf)(const Grid& grid, int row);  // the one length character of a single read
    TextView beforeAddress;                                // between "RE" and the address
    int groupAttributeColumn;
    bool skipsCommandRows;
    bool limitIsFixedAtStart;
};

Text WholeAddress(const Text& column2) { return column2; }
Text AddressBehindLength(const Text& column2) { return Mid(column2, 2); }
Text LengthColumn(const Grid& grid, int row) { return grid.Cell(row, column::kLength); }
Text LengthInAddress(const Grid& grid, int row) { return Left(grid.Cell(row, column::kAddress), 1); }

Text FirstOfLengthColumn(const Grid& grid, int row) {
    const Text length = LengthColumn(grid, row);
    if (length.empty()) throw RuntimeError(RuntimeError::kInvalidArgument);
    return Left(length, 1);
}

constexpr Layout kPlainLayout = {MakeCRCWordTq, WholeAddress,       LengthColumn, FirstOfLengthColumn,
                                 u"",           column::kAttribute, true,         true};

// A group takes its attribute from the length column here: column 4 holds no digit, so it nearly always ends
// at its first row.
constexpr Layout kLengthInAddressLayout = {MakeCRCWordTqTwo,
                                           AddressBehindLength,
                                           LengthInAddress,
                                           LengthInAddress,
                                           u"0",
                                           column::kLength,
                                           false,
                                           false};

void CloseFrame(MainForm& form, const Layout& layout, const HexText& commandAndData) {
    form.SendText = u" 40" + form.AddressText + commandAndData;
    layout.makeCheckWord(form.SendText);
    form.SendText += u" 0D";
}

void BuildWholeRead(MainForm& form, const Layout& layout, TextView command) {
    form.ReadFrameCommand = Text(command);
    CloseFrame(form, layout, form.ReadFrameCommand);
}

void GoToFirstRowOfAttribute(MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    for (int row = 1; row < grid.Rows(); ++row) {
        if (!Contains(grid.Cell(row, column::kAttribute), form.ReadAttribute)) continue;
        form.CurrentRow = Whole16(row);
        return;
    }
}

void BuildAttributeRead(MainForm& form, const Layout& layout, TextView command, TextView attribute) {
    form.ReadAttribute = Text(attribute);
    BuildWholeRead(form, layout, command);
    GoToFirstRowOfAttribute(form);
}

void BringRowIntoRange(MainForm& form) {
    const bool isOutside = form.CurrentRow >= form.ParameterGrid().Rows();
    if (isOutside || form.CurrentRow < form.FirstDataRow) FindReadableRow(form);
}

void BuildSingleRead(MainForm& form, const Layout& layout) {
    Grid& grid = form.ParameterGrid();
    BringRowIntoRange(form);
    if (layout.skipsCommandRows && grid.Cell(form.CurrentRow, column::kAddress) == kCommandAddress) {
        FindReadableRow(form);
    }
    KeepRowInView(form);
    grid.SetCell(form.CurrentRow, column::kSingleRead, Text());
    const Text& address = grid.Cell(form.CurrentRow, column::kAddress);
    const Text length = layout.lengthCharacterOf(grid, form.CurrentRow);
    CloseFrame(
        form, layout,
        HexTextOfReadable(u"RE" + Text(layout.beforeAddress) + layout.addressOf(address) + u"0" + length));
}

std::int16_t Hex16(const Text& text) { return Whole16(HexParse(text)); }

bool RowContinuesGroup(const MainForm& form, const Layout& layout, int row) {
    const Grid& grid = form.ParameterGrid();
    const auto before = HexParse(layout.addressOf(grid.Cell(row - 1, column::kAddress)));
    const auto next = Add32(before, HexParse(layout.lengthOf(grid, row - 1)));
    return next == HexParse(grid.Cell(row, column::kAddress)) &&
           Contains(grid.Cell(row, column::kAttribute), form.ReadAttribute);
}

// The count of data bytes, in its own way: the first row counts twice, the last one of the run never.
std::int16_t CountGroup(MainForm& form, const Layout& layout) {
    const Grid& grid = form.ParameterGrid();
    std::int16_t count = Hex16(layout.lengthOf(grid, form.CurrentRow));
    form.ReadAttribute = grid.Cell(form.CurrentRow, layout.groupAttributeColumn);
    if (layout.limitIsFixedAtStart) {
        form.ReadLimit = ToWhole16(form.ConDataNub.Value());
        if (form.Check2.Value()) form.ReadLimit = Whole16(std::floor(form.clock.Random() * form.ReadLimit));
    }
    for (int row = form.CurrentRow + 1; row < grid.Rows() && RowContinuesGroup(form, layout, row); ++row) {
        count = Add16(count, HexParse(layout.lengthOf(grid, row - 1)));
        if (count >= (layout.limitIsFixedAtStart ? form.ReadLimit : ToNumber(form.ConDataNub.Value()))) break;
    }
    return count;
}

void BuildGroupRead(MainForm& form, const Layout& layout) {
    Grid& grid = form.ParameterGrid();
    BringRowIntoRange(form);
    grid.SetCell(form.CurrentRow, column::kSingleRead, Text());
    Text count = HexOf(static_cast<double>(CountGroup(form, layout)));
    if (Len(count) < 2) FitTextWidth(count, 2);
    const Text address = layout.addressOf(grid.Cell(form.CurrentRow, column::kAddress));
    CloseFrame(form, layout, HexTextOfReadable(u"RE" + Text(layout.beforeAddress) + address + count));
}

void BuildByCommandCode(MainForm& form, const Layout& layout) {
    using namespace command;
    std::int32_t& code = form.CommandCode;
    if (code > 10000) {
        BuildWholeRead(form, layout, form.SendCount % 2 != 0 ? kReadStaticWord : kReadDynamicWord);
    } else if (code > 1000) {
        BuildWholeRead(form, layout, kReadDynamicWord);
    } else if (code == kReadDynamic || code == kReadAlternating || code == kReadDynamicTurn) {
        if (code != kReadDynamic) code = kReadStaticTurn;
        BuildAttributeRead(form, layout, kReadDynamicWord, u"D");
    } else if (code == kReadStatic || code == kReadStaticTurn) {
        if (code != kReadStatic) code = kReadDynamicTurn;
        BuildAttributeRead(form, layout, kReadStaticWord, u"R");
    } else if (code == kSendLineFeed) {
        form.SendText = u"\n";
    } else if (code == kReadThisRow || code == kReadRowByRow) {
        BuildSingleRead(form, layout);
    } else if (code == kReadSeveralRows) {
        BuildGroupRead(form, layout);
    } else if (code > kWriteOffset) {
        code -= kWriteOffset;  // SendText holds the frame of a write, which goes out in place of a read
    }
}

void BuildWithRedrawOff(MainForm& form, const Layout& layout) {
    form.ParameterGrid().Redraw = false;
    BuildByCommandCode(form, layout);
    if (form.ProtocolCode == 13) FillFrameEnd(form);
    form.ParameterGrid().Redraw = true;
}

}  // namespace

void BuildTqReadRequest(MainForm& form) { BuildWithRedrawOff(form, kPlainLayout); }

void BuildTqGroupReadRequest(MainForm& form) { BuildWithRedrawOff(form, kLengthInAddressLayout); }

void FindReadableRow(MainForm& form) {
    if (form.ProtocolCode != 11 && form.ProtocolCode != 12) return;
    const Grid& grid = form.ParameterGrid();
    if (form.CurrentRow > LastRow(grid)) form.CurrentRow = form.FirstDataRow;
    for (int row = form.FirstDataRow; row < grid.Rows(); ++row) {
        const Text& attribute = grid.Cell(row, column::kAttribute);
        const bool isReadable = Contains(attribute, u"S") || Contains(attribute, u"R");
        if (!isReadable || grid.Cell(row, column::kAddress) == kCommandAddress) continue;
        form.CurrentRow = Whole16(row);
        return;
    }
}

void FillFrameEnd(MainForm& form) {
    constexpr int kEndByte = 3;
    form.SendText = Left(form.SendText, std::max(Len(form.SendText) - kEndByte, 0)) + u" 30 30 0d";
}

}  // namespace commtest
