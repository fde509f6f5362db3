#include "protocol_modbus/rtu_read_requests.h"

#include <cmath>
#include <utility>

#include "host/clock.h"
#include "protocol_modbus/read_operation.h"
#include "protocol_modbus/rtu_frame.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr TextView kReadHolding = u" 03 ";
constexpr TextView kReadInput = u" 04 ";
constexpr TextView kOneRegister = u" 00 01";
constexpr TextView kTwoRegisters = u" 00 02";
constexpr TextView kFourRegisters = u" 00 04";
constexpr TextView kFiveRegisters = u" 00 05";

struct ReadForm {
    void (*composeSingleRead)(Conversation&);
    TextView groupFunction;
    int step;        // registers from a row to the next
    int firstCount;  // of a multi-read, before the rows that run on
    bool hasTests;   // and the board type
};

const Text& CellOfCurrentRow(const Conversation& talk, int col) {
    return talk.ParameterGrid().Cell(talk.CurrentRow, col);
}

Text ZeroToppedRowAddress(const Conversation& talk) {
    return ZeroToppedAddress(CellOfCurrentRow(talk, column::kAddress));
}

void Compose(Conversation& talk, TextView function, const Text& address, TextView count) {
    constexpr std::size_t kLength = 24;  // with its check word
    Text frame;
    frame.reserve(kLength);
    frame += talk.AddressText;
    frame += function;
    frame += SplitAddress(address);
    frame += count;
    talk.SendText = std::move(frame);
}

// --- The single reads ---

// Q113: a row of four bytes is read with one register, except on phase instruments and flow meters. Q114: a
// length of none of these kinds leaves the frame standing, which then gains two bytes.
void ComposeSingleReadByLength(Conversation& talk) {
    const double length = ToNumber(Left(CellOfCurrentRow(talk, column::kLength), 1));
    const Text address = ZeroToppedRowAddress(talk);
    const Text& instrument = talk.InstrumentName();
    const bool isFourBytes = length == 4;
    if (isFourBytes && Contains(instrument, u"流量计")) {
        Compose(talk, kReadInput, address, kFourRegisters);
    } else if (isFourBytes && Contains(instrument, u"相")) {
        Compose(talk, kReadHolding, address, kTwoRegisters);
    } else if (isFourBytes || length == 1 || length == 2) {
        Compose(talk, kReadHolding, address, kOneRegister);
    } else if (length == 5) {
        Compose(talk, kReadInput, address, kFiveRegisters);
    }
}

void ComposeHoldingRead(Conversation& talk) {
    Compose(talk, kReadHolding, ZeroToppedRowAddress(talk), kOneRegister);
}

void ComposeInputRead(Conversation& talk) {
    Compose(talk, kReadInput, ZeroToppedRowAddress(talk), kOneRegister);
}

// The one read that keeps the first digit of the row's address (Q112).
void ComposeTwoRegisterRead(Conversation& talk) {
    Compose(talk, kReadHolding, CellOfCurrentRow(talk, column::kAddress), kTwoRegisters);
}

constexpr ReadForm kFormA = {ComposeSingleReadByLength, kReadHolding, 1, 1, true};
constexpr ReadForm kFormB = {ComposeHoldingRead, kReadHolding, 1, 1, false};
constexpr ReadForm kFormC = {ComposeInputRead, kReadInput, 1, 1, false};
constexpr ReadForm kFormD = {ComposeTwoRegisterRead, kReadHolding, 2, 0, true};

// --- The other reads ---

// Q98: the limit is looked at only behind a row that runs on. Q118: the count of rows travels as one of
// registers.
int CountRowsThatRunOn(Conversation& talk, Clock& clock, const ReadForm& readForm) {
    const Grid& grid = talk.ParameterGrid();
    const std::int16_t limit = TakeReadLimit(talk, clock);
    int count = readForm.firstCount;
    for (int row = talk.CurrentRow + 1; row < grid.Rows() && RowRunsOn(grid, row, readForm.step); ++row) {
        ++count;
        if (count >= limit) break;
    }
    return count > 0 ? count : ToWhole16(talk.ConDataNub.Value());  // Q119
}

void ComposeGroupRead(Conversation& talk, Clock& clock, const ReadForm& readForm) {
    Text count = HexOf(static_cast<double>(CountRowsThatRunOn(talk, clock, readForm)));
    if (Len(count) < 2) FitTextWidth(count, 2);  // Q99: longer ones are not cut
    Compose(talk, readForm.groupFunction, ZeroToppedRowAddress(talk), u" 00 " + count);
}

void ComposeTest(Conversation& talk, Clock& clock) {
    constexpr int kWords = 65534;  // Q120
    PrepareRowForRead(talk);
    const Text word = FittedToWidth(HexOf(std::floor(clock.Random() * kWords)), 4);
    Compose(talk, u" 08 ", ZeroToppedRowAddress(talk), u" " + SplitAddress(word));
}

// False if there is nothing to compose: SendText then goes out as it is.
bool ComposeByOperation(Conversation& talk, Clock& clock, const ReadForm& readForm) {
    const ReadOperation operation = TakeReadOperation(talk);
    switch (operation) {
        case ReadOperation::Nothing: return false;
        case ReadOperation::SingleRow:
            PrepareRowForRead(talk);
            readForm.composeSingleRead(talk);
            return true;
        case ReadOperation::SeveralRows:
            PrepareRowForRead(talk);
            ComposeGroupRead(talk, clock, readForm);
            return true;
        default: break;
    }
    if (!readForm.hasTests) return false;  // Q115: the last frame goes out again
    if (operation == ReadOperation::BoardType) {
        talk.SendText = talk.AddressText + u" 09 00 00 00 00";
        return true;
    }
    talk.CurrentRow = operation == ReadOperation::RisingTest ? Add16(talk.CurrentRow, 1) : kFirstModbusRow;
    ComposeTest(talk, clock);
    return true;
}

void BuildWithRedrawOff(Conversation& talk, Clock& clock, const ReadForm& readForm) {
    talk.ParameterGrid().Redraw = false;
    if (ComposeByOperation(talk, clock, readForm)) AppendRtuCrc(talk.SendText);
    talk.ParameterGrid().Redraw = true;  // Q76: not behind an error
}

}  // namespace

void BuildRtuReadFormA(Conversation& talk, Clock& clock) { BuildWithRedrawOff(talk, clock, kFormA); }
void BuildRtuReadFormB(Conversation& talk, Clock& clock) { BuildWithRedrawOff(talk, clock, kFormB); }
void BuildRtuReadFormC(Conversation& talk, Clock& clock) { BuildWithRedrawOff(talk, clock, kFormC); }
void BuildRtuReadFormD(Conversation& talk, Clock& clock) { BuildWithRedrawOff(talk, clock, kFormD); }

}  // namespace commtest
