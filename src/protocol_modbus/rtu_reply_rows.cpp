#include "protocol_modbus/rtu_reply_rows.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "protocol_modbus/decimal_row.h"
#include "protocol_modbus/read_operation.h"
#include "protocol_modbus/rtu_value.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"

namespace commtest {

namespace {

constexpr int kFrontWidth = 9;  // address, function, third byte, whatever it is (Q132)
constexpr int kCrcWidth = 6;
constexpr std::size_t kByteWidth = 3;
constexpr std::size_t kFewestLeft = 7;  // a walk with less data left is over (Q133)

// The data still to be shared out, a blank in front of each byte.
using Data = TextView;

// Bytes `first` to `last`, counted from 1, joined without blanks; what lies beyond the end is missing.
Text Joined(Data data, int first, int last) {
    std::array<char16_t, 20> code;
    std::size_t length = 0;
    auto digits = static_cast<std::size_t>(first) * kByteWidth - 2;
    for (int byte = first; byte <= last && digits < data.size(); ++byte, digits += kByteWidth) {
        code[length++] = data[digits];
        if (digits + 1 < data.size()) code[length++] = data[digits + 1];
    }
    return {code.data(), length};
}

Text WordsSwapped(Data data) { return Joined(data, 3, 4) + Joined(data, 1, 2); }

void DropBytes(Data& data, std::size_t count) {
    data.remove_prefix(std::min(count * kByteWidth, data.size()));
}

Text TakeBytes(Data& data, int count) {
    Text code = Joined(data, 1, count);
    DropBytes(data, static_cast<std::size_t>(count));
    return code;
}

// Takes a row's share out of the data; nothing if its length names none. Q136: on a flow meter the data of
// one reply stay for the following rows. Q234: not on every face.
class RowCutter {
  public:
    explicit RowCutter(const Conversation& talk)
        : grid_(talk.ParameterGrid()),
          format_(Mid(talk.MeterCodeText, 3, 2)),
          isFlowMeter_(talk.switches.instrumentTypeHandling && Contains(talk.InstrumentName(), u"流量计")) {}

    std::optional<Text> Cut(int row, Data& data) const {
        const Text& length = grid_.Cell(row, column::kLength);
        switch (length.size() == 1 ? length.front() : u' ') {
            case u'1': return TakeBytes(data, 1);
            case u'2': return TakeBytes(data, 2);
            case u'4': return CutFour(grid_.Cell(row, column::kAddress) == u"0000", data);
            case u'5': return CutFive(data);
            default: return std::nullopt;  // Q138: the cell stays
        }
    }

  private:
    // Q135: of format 12 eight bytes are shown and four of them stay for the next row.
    Text CutFour(bool isAtZero, Data& data) const {
        const bool isLong = format_ == u"12" && !isAtZero;
        Text code = format_ == u"11" ? WordsSwapped(data) : Joined(data, 1, isLong ? 8 : 4);
        if (!isFlowMeter_ || isAtZero) DropBytes(data, 4);
        return code;
    }

    Text CutFive(Data& data) const {
        Text code = format_ == u"11" ? WordsSwapped(data) : Joined(data, 1, 10);
        if (!isFlowMeter_) data = {};  // Q137
        return code;
    }

    const Grid& grid_;
    Text format_;
    bool isFlowMeter_;
};

void ShowValue(const RtuValueReader& reader, DecimalRows& decimals, Grid& grid, int row, int rawColumn) {
    Text value = grid.Cell(row, rawColumn);
    reader.Decode(value);
    grid.SetCell(row, column::kValue, value);
    if (grid.Cell(row, column::kDecimals) != u"0" && !value.empty()) {
        value = decimals.Scaled(row, std::move(value), true);
        grid.Redraw = true;
    }
    grid.SetCell(row, column::kScaledValue, value);
}

}  // namespace

void DecodeRtuRows(Conversation& talk, const HexText& reply) {
    Data data = reply;
    if (data.size() <= kFrontWidth + kCrcWidth) return;
    data = data.substr(kFrontWidth, data.size() - kFrontWidth - kCrcWidth);
    Grid& grid = talk.ParameterGrid();
    const RowCutter cutter(talk);
    const RtuValueReader reader(talk);
    DecimalRows decimals(grid);
    const bool isGroupRead = talk.CommandCode == command::kReadSeveralRows;
    const int rawColumn = isGroupRead ? column::kGroupRead : column::kSingleRead;
    talk.CurrentRow = std::max(talk.CurrentRow, kFirstModbusRow);
    // Q134: CurrentRow stays where the grid ends first.
    for (int row = talk.CurrentRow; row < grid.Rows(); ++row) {
        if (const auto raw = cutter.Cut(row, data)) grid.SetCell(row, rawColumn, *raw);
        talk.FilledRows.Add(row);
        ShowValue(reader, decimals, grid, row, rawColumn);
        if (!isGroupRead) KeepRowInView(talk);
        if (data.size() < kFewestLeft) {
            talk.CurrentRow = Whole16(row + 1);
            return;
        }
    }
}

}  // namespace commtest
