#include "protocol_modbus/ascii_read_requests.h"

#include <cstdint>

#include "numbers/lrc.h"
#include "protocol_modbus/ascii_frame.h"
#include "protocol_modbus/read_operation.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kBytesPerWord = 2;
constexpr int kBytesPerCount = 5;  // in which the catalogue counts the lengths of code 22

const Text& AddressOfRow(const MainForm& form) {
    return form.ParameterGrid().Cell(form.CurrentRow, column::kAddress);
}

double LengthOfRow(const MainForm& form) {
    return ToNumber(form.ParameterGrid().Cell(form.CurrentRow, column::kLength));
}

Text CountText(std::int16_t count, int width) { return FittedToWidth(HexOf(count), width); }

void CloseWordRead(MainForm& form, std::int16_t words) {
    const Text data = ZeroToppedAddress(AddressOfRow(form)) + CountText(words, 4);
    form.SendText = AsciiReadFrame(form.AddressText + u"03" + data, LrcOfPairs);
}

void CloseCountRead(MainForm& form, std::int16_t count) {
    const Text data = Mid(AddressOfRow(form), 3) + CountText(count, 2);
    form.SendText = AsciiReadFrame(form.AddressText + u"03" + data, LrcOfChars);
}

std::int16_t WordsOfRow(const MainForm& form) { return Whole16(LengthOfRow(form) / kBytesPerWord); }

std::int16_t CountOfRow(const MainForm& form) { return Whole16(LengthOfRow(form) / kBytesPerCount); }

// The length of the first row stands for that of every row.
std::int16_t WordsOfRun(MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    std::int16_t words = WordsOfRow(form);
    const std::int16_t limit = TakeReadLimit(form);
    const double step = LengthOfRow(form) / kBytesPerWord;
    for (int row = form.CurrentRow + 1; row < grid.Rows() && RowRunsOn(grid, row, step); ++row) {
        words = Whole16(step + words);
        if (words >= limit) break;
    }
    return words;
}

// Two divisors: the addresses go by words, the count by fives. The instruments' users rely on both.
std::int16_t CountOfRun(MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    std::int16_t count = CountOfRow(form);
    const std::int16_t limit = TakeReadLimit(form);
    for (int row = form.CurrentRow + 1; row < grid.Rows(); ++row) {
        const double length = ToNumber(Left(grid.Cell(row - 1, column::kLength), 1));
        if (!RowRunsOn(grid, row, length / kBytesPerWord)) break;
        count = Whole16(count + length / kBytesPerCount);
        if (count >= limit) break;
    }
    return count;
}

void ReadRow(MainForm& form) { CloseWordRead(form, WordsOfRow(form)); }

void ReadRun(MainForm& form) { CloseWordRead(form, WordsOfRun(form)); }

void ReadCountRow(MainForm& form) { CloseCountRead(form, CountOfRow(form)); }

void ReadCountRun(MainForm& form) { CloseCountRead(form, CountOfRun(form)); }

// The row's length has to be a number, and then goes unused like its address.
void ReadFixed(MainForm& form) {
    WordsOfRow(form);
    form.SendText = AsciiReadFrame(form.AddressText + u"030110", LrcOfPairs);
}

void Build(MainForm& form, void (*readRow)(MainForm&), void (*readRun)(MainForm&)) {
    const ReadOperation operation = TakeReadOperation(form);
    const bool isSingle = operation == ReadOperation::SingleRow;
    if (!isSingle && operation != ReadOperation::SeveralRows) return;
    PrepareRowForRead(form);
    (isSingle ? readRow : readRun)(form);
}

}  // namespace

void BuildAsciiRead(MainForm& form) { Build(form, ReadRow, ReadRun); }

void BuildAsciiReadCustom01(MainForm& form) { Build(form, ReadCountRow, ReadCountRun); }

void BuildAsciiReadCustom02(MainForm& form) { Build(form, ReadFixed, ReadRun); }

}  // namespace commtest
