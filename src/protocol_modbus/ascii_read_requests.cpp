#include "protocol_modbus/ascii_read_requests.h"

#include <cstdint>

#include "numbers/lrc.h"
#include "protocol_modbus/ascii_frame.h"
#include "protocol_modbus/read_operation.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr int kBytesPerWord = 2;
constexpr int kBytesPerCount = 5;  // in which the catalogue counts the lengths of code 22

const Text& AddressOfRow(const Conversation& talk) {
    return talk.ParameterGrid().Cell(talk.CurrentRow, column::kAddress);
}

double LengthOfRow(const Conversation& talk) {
    return ToNumber(talk.ParameterGrid().Cell(talk.CurrentRow, column::kLength));
}

Text CountText(std::int16_t count, int width) { return FittedToWidth(HexOf(count), width); }

void CloseWordRead(Conversation& talk, std::int16_t words) {
    const Text data = ZeroToppedAddress(AddressOfRow(talk)) + CountText(words, 4);
    talk.SendText = AsciiReadFrame(talk.AddressText + u"03" + data, LrcOfPairs);
}

void CloseCountRead(Conversation& talk, std::int16_t count) {
    const Text data = Mid(AddressOfRow(talk), 3) + CountText(count, 2);  // Q145
    talk.SendText = AsciiReadFrame(talk.AddressText + u"03" + data, LrcOfChars);
}

// Q142: a length of 1 asks for nothing.
std::int16_t WordsOfRow(const Conversation& talk) { return Whole16(LengthOfRow(talk) / kBytesPerWord); }

std::int16_t CountOfRow(const Conversation& talk) { return Whole16(LengthOfRow(talk) / kBytesPerCount); }

// Q143: the length of the first row stands for that of every row.
std::int16_t WordsOfRun(Conversation& talk, Clock& clock) {
    const Grid& grid = talk.ParameterGrid();
    std::int16_t words = WordsOfRow(talk);
    const std::int16_t limit = TakeReadLimit(talk, clock);
    const double step = LengthOfRow(talk) / kBytesPerWord;
    for (int row = talk.CurrentRow + 1; row < grid.Rows() && RowRunsOn(grid, row, step); ++row) {
        words = Whole16(step + words);
        if (words >= limit) break;  // Q98
    }
    return words;
}

// Q144: the addresses go by words, the count by fives.
std::int16_t CountOfRun(Conversation& talk, Clock& clock) {
    const Grid& grid = talk.ParameterGrid();
    std::int16_t count = CountOfRow(talk);
    const std::int16_t limit = TakeReadLimit(talk, clock);
    for (int row = talk.CurrentRow + 1; row < grid.Rows(); ++row) {
        const double length = ToNumber(Left(grid.Cell(row - 1, column::kLength), 1));
        if (!RowRunsOn(grid, row, length / kBytesPerWord)) break;
        count = Whole16(count + length / kBytesPerCount);
        if (count >= limit) break;  // Q98
    }
    return count;
}

void ReadRow(Conversation& talk, Clock&) { CloseWordRead(talk, WordsOfRow(talk)); }

void ReadRun(Conversation& talk, Clock& clock) { CloseWordRead(talk, WordsOfRun(talk, clock)); }

void ReadCountRow(Conversation& talk, Clock&) { CloseCountRead(talk, CountOfRow(talk)); }

void ReadCountRun(Conversation& talk, Clock& clock) { CloseCountRead(talk, CountOfRun(talk, clock)); }

// Q146: the row's length has to be a number, and then goes unused like its address.
void ReadFixed(Conversation& talk, Clock&) {
    WordsOfRow(talk);
    talk.SendText = AsciiReadFrame(talk.AddressText + u"030110", LrcOfPairs);
}

using Read = void (*)(Conversation&, Clock&);

void Build(Conversation& talk, Clock& clock, Read readRow, Read readRun) {
    const ReadOperation operation = TakeReadOperation(talk);
    const bool isSingle = operation == ReadOperation::SingleRow;
    if (!isSingle && operation != ReadOperation::SeveralRows) return;
    PrepareRowForRead(talk);
    (isSingle ? readRow : readRun)(talk, clock);
}

}  // namespace

void BuildAsciiRead(Conversation& talk, Clock& clock) { Build(talk, clock, ReadRow, ReadRun); }

void BuildAsciiReadCustom01(Conversation& talk, Clock& clock) {
    Build(talk, clock, ReadCountRow, ReadCountRun);
}

void BuildAsciiReadCustom02(Conversation& talk, Clock& clock) { Build(talk, clock, ReadFixed, ReadRun); }

}  // namespace commtest
