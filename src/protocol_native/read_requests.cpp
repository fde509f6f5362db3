#include "protocol_native/read_requests.h"

#include <cmath>

#include "host/clock.h"
#include "protocol_native/check_words.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

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

// Q100: a group takes its attribute from the length column here.
constexpr Layout kLengthInAddressLayout = {MakeCRCWordTqTwo,
                                           AddressBehindLength,
                                           LengthInAddress,
                                           LengthInAddress,
                                           u"0",
                                           column::kLength,
                                           false,
                                           false};

void CloseFrame(Conversation& talk, const Layout& layout, const HexText& commandAndData) {
    talk.SendText = u" 40" + talk.AddressText + commandAndData;
    layout.makeCheckWord(talk.SendText);
    talk.SendText += u" 0D";
}

void BuildWholeRead(Conversation& talk, const Layout& layout, TextView command) {
    talk.ReadFrameCommand = Text(command);
    CloseFrame(talk, layout, talk.ReadFrameCommand);
}

void GoToFirstRowOfAttribute(Conversation& talk) {
    const Grid& grid = talk.ParameterGrid();
    for (int row = 1; row < grid.Rows(); ++row) {
        if (!Contains(grid.Cell(row, column::kAttribute), talk.ReadAttribute)) continue;
        talk.CurrentRow = Whole16(row);
        return;
    }
}

void BuildAttributeRead(Conversation& talk, const Layout& layout, TextView command, TextView attribute) {
    talk.ReadAttribute = Text(attribute);
    BuildWholeRead(talk, layout, command);
    GoToFirstRowOfAttribute(talk);
}

void BringRowIntoRange(Conversation& talk) {
    const bool isOutside = talk.CurrentRow >= talk.ParameterGrid().Rows();
    if (isOutside || talk.CurrentRow < talk.FirstDataRow) FindReadableRow(talk);
}

void BuildSingleRead(Conversation& talk, const Layout& layout) {
    Grid& grid = talk.ParameterGrid();
    BringRowIntoRange(talk);
    // Q94: to the top. Q95: under code 12 not at all.
    if (layout.skipsCommandRows && grid.Cell(talk.CurrentRow, column::kAddress) == kCommandAddress) {
        FindReadableRow(talk);
    }
    KeepRowInView(talk);
    grid.SetCell(talk.CurrentRow, column::kSingleRead, Text());
    const Text& address = grid.Cell(talk.CurrentRow, column::kAddress);
    const Text length = layout.lengthCharacterOf(grid, talk.CurrentRow);
    CloseFrame(
        talk, layout,
        HexTextOfReadable(u"RE" + Text(layout.beforeAddress) + layout.addressOf(address) + u"0" + length));
}

std::int16_t Hex16(const Text& text) { return Whole16(HexParse(text)); }  // Q97: decimal in the reply

bool RowContinuesGroup(const Conversation& talk, const Layout& layout, int row) {
    const Grid& grid = talk.ParameterGrid();
    const auto before = HexParse(layout.addressOf(grid.Cell(row - 1, column::kAddress)));
    const auto next = Add32(before, HexParse(layout.lengthOf(grid, row - 1)));
    // Q101: the whole column, in both layouts.
    return next == HexParse(grid.Cell(row, column::kAddress)) &&
           Contains(grid.Cell(row, column::kAttribute), talk.ReadAttribute);
}

// Q96: the first row counts twice, the last one of the run never.
std::int16_t CountGroup(Conversation& talk, Clock& clock, const Layout& layout) {
    const Grid& grid = talk.ParameterGrid();
    std::int16_t count = Hex16(layout.lengthOf(grid, talk.CurrentRow));
    talk.ReadAttribute = grid.Cell(talk.CurrentRow, layout.groupAttributeColumn);
    if (layout.limitIsFixedAtStart) {
        talk.ReadLimit = ToWhole16(talk.ConDataNub.Value());
        if (talk.Check2.Value()) talk.ReadLimit = Whole16(std::floor(clock.Random() * talk.ReadLimit));
    }
    for (int row = talk.CurrentRow + 1; row < grid.Rows() && RowContinuesGroup(talk, layout, row); ++row) {
        count = Add16(count, HexParse(layout.lengthOf(grid, row - 1)));
        // Q98: behind a row that was added. Q102: under code 12 read anew at each row.
        if (count >= (layout.limitIsFixedAtStart ? talk.ReadLimit : ToNumber(talk.ConDataNub.Value()))) break;
    }
    return count;
}

void BuildGroupRead(Conversation& talk, Clock& clock, const Layout& layout) {
    Grid& grid = talk.ParameterGrid();
    BringRowIntoRange(talk);
    grid.SetCell(talk.CurrentRow, column::kSingleRead, Text());
    Text count = HexOf(static_cast<double>(CountGroup(talk, clock, layout)));
    if (Len(count) < 2) FitTextWidth(count, 2);  // Q99: longer ones are not cut
    const Text address = layout.addressOf(grid.Cell(talk.CurrentRow, column::kAddress));
    CloseFrame(talk, layout, HexTextOfReadable(u"RE" + Text(layout.beforeAddress) + address + count));
}

void BuildByCommandCode(Conversation& talk, Clock& clock, const Layout& layout) {
    using namespace command;
    std::int32_t& code = talk.CommandCode;
    if (code > kReplayBuiltAbove) {
        BuildWholeRead(talk, layout, talk.SendCount % 2 != 0 ? kReadStaticWord : kReadDynamicWord);
    } else if (code > kNativeSearchAbove) {
        BuildWholeRead(talk, layout, kReadDynamicWord);
    } else if (code == kReadDynamic || code == kReadAlternating || code == kReadDynamicTurn) {
        if (code != kReadDynamic) code = kReadStaticTurn;
        BuildAttributeRead(talk, layout, kReadDynamicWord, u"D");
    } else if (code == kReadStatic || code == kReadStaticTurn) {
        if (code != kReadStatic) code = kReadDynamicTurn;
        BuildAttributeRead(talk, layout, kReadStaticWord, u"R");
    } else if (code == kSendLineFeed) {
        talk.SendText = u"\n";  // Q46
    } else if (code == kReadThisRow || code == kReadRowByRow) {
        BuildSingleRead(talk, layout);
    } else if (code == kReadSeveralRows) {
        BuildGroupRead(talk, clock, layout);
    } else if (code > kWriteOffset) {
        code -= kWriteOffset;  // SendText holds the frame of a write, which goes out in place of a read
    }
}

void BuildWithRedrawOff(Conversation& talk, Clock& clock, const Layout& layout) {
    talk.ParameterGrid().Redraw = false;
    BuildByCommandCode(talk, clock, layout);
    if (talk.ProtocolCode == 13) FillFrameEnd(talk);  // Q89: of a frame left standing, too
    talk.ParameterGrid().Redraw = true;
}

}  // namespace

void BuildTqReadRequest(Conversation& talk, Clock& clock) { BuildWithRedrawOff(talk, clock, kPlainLayout); }

void BuildTqGroupReadRequest(Conversation& talk, Clock& clock) {
    BuildWithRedrawOff(talk, clock, kLengthInAddressLayout);
}

void FindReadableRow(Conversation& talk) {
    if (talk.ProtocolCode != 11 && talk.ProtocolCode != 12) return;  // Q91
    const Grid& grid = talk.ParameterGrid();
    if (talk.CurrentRow > LastRow(grid)) talk.CurrentRow = talk.FirstDataRow;
    for (int row = talk.FirstDataRow; row < grid.Rows(); ++row) {
        const Text& attribute = grid.Cell(row, column::kAttribute);
        const bool isReadable = Contains(attribute, u"S") || Contains(attribute, u"R");
        if (!isReadable || grid.Cell(row, column::kAddress) == kCommandAddress) continue;
        talk.CurrentRow = Whole16(row);
        return;
    }
}

void FillFrameEnd(Conversation& talk) {
    constexpr int kEndByte = 3;
    // Q88: a small d.
    talk.SendText = Left(talk.SendText, Len(talk.SendText) - kEndByte) + u" 30 30 0d";
}

}  // namespace commtest
