#include "protocol_modbus/rtu_read_requests.h"

#include <cmath>

#include "protocol_modbus/read_operation.h"
#include "protocol_modbus/rtu_frame.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr TextView kReadHolding = u" 03 ";
constexpr TextView kReadInput = u" 04 ";
constexpr TextView kOneRegister = u" 00 01";
constexpr TextView kTwoRegisters = u" 00 02";
constexpr TextView kFourRegisters = u" 00 04";
constexpr TextView kFiveRegisters = u" 00 05";

struct ReadForm {
    void (*composeSingleRead)(MainForm&);
    TextView groupFunction;
    int step;        // registers from a row to the next
    int firstCount;  // of a multi-read, before the rows that run on
    bool hasTests;   // and the board type
};

const Text& CellOfCurrentRow(const MainForm& form, int col) {
    return form.ParameterGrid().Cell(form.CurrentRow, col);
}

Text ZeroToppedRowAddress(const MainForm& form) {
    return ZeroToppedAddress(CellOfCurrentRow(form, column::kAddress));
}

void Compose(MainForm& form, TextView function, const Text& address, TextView count) {
    form.SendText = form.AddressText + Text(function) + SplitAddress(address) + Text(count);
}

// --- The single reads ---

// A row of four bytes is read with one register, except on phase instruments and flow meters. A length of
// none of these kinds leaves the frame standing, which then gains two more bytes each time. The instruments'
// users rely on both.
void ComposeSingleReadByLength(MainForm& form) {
    const double length = ToNumber(Left(CellOfCurrentRow(form, column::kLength), 1));
    const Text address = ZeroToppedRowAddress(form);
    const Text& instrument = form.ConMeterName[0].Value();
    const bool isFourBytes = length == 4;
    if (isFourBytes && Contains(instrument, u"流量计")) {
        Compose(form, kReadInput, address, kFourRegisters);
    } else if (isFourBytes && Contains(instrument, u"相")) {
        Compose(form, kReadHolding, address, kTwoRegisters);
    } else if (isFourBytes || length == 1 || length == 2) {
        Compose(form, kReadHolding, address, kOneRegister);
    } else if (length == 5) {
        Compose(form, kReadInput, address, kFiveRegisters);
    }
}

void ComposeHoldingRead(MainForm& form) {
    Compose(form, kReadHolding, ZeroToppedRowAddress(form), kOneRegister);
}

void ComposeInputRead(MainForm& form) { Compose(form, kReadInput, ZeroToppedRowAddress(form), kOneRegister); }

// The one read that keeps the first digit of the row's address.
void ComposeTwoRegisterRead(MainForm& form) {
    Compose(form, kReadHolding, CellOfCurrentRow(form, column::kAddress), kTwoRegisters);
}

constexpr ReadForm kFormA = {ComposeSingleReadByLength, kReadHolding, 1, 1, true};
constexpr ReadForm kFormB = {ComposeHoldingRead, kReadHolding, 1, 1, false};
constexpr ReadForm kFormC = {ComposeInputRead, kReadInput, 1, 1, false};
constexpr ReadForm kFormD = {ComposeTwoRegisterRead, kReadHolding, 2, 0, true};

// --- The other reads ---

// The limit is looked at only behind the first row that runs on, so that 1 and 0 give what 2 gives. The count
// is one of rows and travels as one of registers: rows of two registers get about half of what they hold.
int CountRowsThatRunOn(MainForm& form, const ReadForm& readForm) {
    const Grid& grid = form.ParameterGrid();
    const std::int16_t limit = TakeReadLimit(form);
    int count = readForm.firstCount;
    for (int row = form.CurrentRow + 1; row < grid.Rows() && RowRunsOn(grid, row, readForm.step); ++row) {
        ++count;
        if (count >= limit) break;
    }
    return count > 0 ? count : ToWhole16(form.ConDataNub.Value());
}

void ComposeGroupRead(MainForm& form, const ReadForm& readForm) {
    Text count = HexOf(static_cast<double>(CountRowsThatRunOn(form, readForm)));
    if (Len(count) < 2) FitTextWidth(count, 2);
    Compose(form, readForm.groupFunction, ZeroToppedRowAddress(form), u" 00 " + count);
}

void ComposeTest(MainForm& form) {
    constexpr int kWords = 65534;
    PrepareRowForRead(form);
    const Text word = FittedToWidth(HexOf(std::floor(form.clock.Random() * kWords)), 4);
    Compose(form, u" 08 ", ZeroToppedRowAddress(form), u" " + SplitAddress(word));
}

// False if there is nothing to compose: SendText then goes out as it is.
bool ComposeByOperation(MainForm& form, const ReadForm& readForm) {
    const ReadOperation operation = TakeReadOperation(form);
    switch (operation) {
        case ReadOperation::Nothing: return false;
        case ReadOperation::SingleRow:
            PrepareRowForRead(form);
            readForm.composeSingleRead(form);
            return true;
        case ReadOperation::SeveralRows:
            PrepareRowForRead(form);
            ComposeGroupRead(form, readForm);
            return true;
        default: break;
    }
    if (!readForm.hasTests) return false;
    if (operation == ReadOperation::BoardType) {
        form.SendText = form.AddressText + u" 09 00 00 00 00";
        return true;
    }
    form.CurrentRow = operation == ReadOperation::RisingTest ? Add16(form.CurrentRow, 1) : kFirstModbusRow;
    ComposeTest(form);
    return true;
}

void BuildWithRedrawOff(MainForm& form, const ReadForm& readForm) {
    form.ParameterGrid().Redraw = false;
    if (ComposeByOperation(form, readForm)) AppendRtuCrc(form.SendText);
    form.ParameterGrid().Redraw = true;
}

}  // namespace

void BuildRtuReadFormA(MainForm& form) { BuildWithRedrawOff(form, kFormA); }
void BuildRtuReadFormB(MainForm& form) { BuildWithRedrawOff(form, kFormB); }
void BuildRtuReadFormC(MainForm& form) { BuildWithRedrawOff(form, kFormC); }
void BuildRtuReadFormD(MainForm& form) { BuildWithRedrawOff(form, kFormD); }

}  // namespace commtest
