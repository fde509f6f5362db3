#include "cli/protocol_manner.h"

#include <algorithm>

#include "runtime/number.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const Text& CellOf(const MainForm& form, int row, int col) { return form.ParameterGrid().Cell(row, col); }

// The first row at the address that column 5 of `row` names, among those that `mayHold` allows; 0 if none.
template <typename MayHold>
int RowAtDecimalsAddress(const MainForm& form, int row, MayHold&& mayHold) {
    const Text& decimals = CellOf(form, row, column::kDecimals);
    if (decimals == u"0") return 0;
    for (int r = 1; r <= LastRow(form.ParameterGrid()); ++r) {
        const bool isThere = HexParse(CellOf(form, r, column::kAddress)) == HexParse(decimals);
        if (isThere && mayHold(r)) return r;
    }
    return 0;
}

// --- The native instruments ---

// Row 0 holds the headings; a user would have clicked on a row by now.
std::int16_t FirstRowNative(const MainForm& form) { return std::max<std::int16_t>(form.FirstDataRow, 1); }

QString WhyUnreadableNative(const MainForm& form, int row) {
    if (CellOf(form, row, column::kAddress) == kCommandAddress) return u"此行是命令"_s;
    if (row < form.FirstDataRow) return u"此行在第一个 RW 行之前"_s;
    const Text& attribute = CellOf(form, row, column::kAttribute);
    return Contains(attribute, u"R") || Contains(attribute, u"S") ? QString() : u"此行没有 R 属性"_s;
}

// The first row at that address, if its name says that it holds decimals.
int DecimalsRowNative(const MainForm& form, int row) {
    const int found = RowAtDecimalsAddress(form, row, [](int) { return true; });
    const Text& name = CellOf(form, found, column::kName);
    return found > 0 && (Contains(name, u"小数点") || Contains(name, u"虚拟")) ? found : 0;
}

// --- Modbus ---

constexpr std::int16_t kFirstModbusRow = 6;

std::int16_t FirstRowModbus(const MainForm&) { return kFirstModbusRow; }

QString WhyUnreadableModbus(const MainForm&, int row) {
    return row < kFirstModbusRow ? u"第 1 至 5 行不能单独读取"_s : QString();
}

int DecimalsRowRtu(const MainForm& form, int row) {
    return RowAtDecimalsAddress(form, row,
                                [&form](int r) { return CellOf(form, r, column::kAttribute) != u"S"; });
}

int OwnDecimals(const MainForm&, int) { return 0; }

constexpr ProtocolManner kNative = {FirstRowNative, WhyUnreadableNative, DecimalsRowNative,
                                    u"# 仪表的指定参数的数值"};
constexpr ProtocolManner kAscii = {FirstRowModbus, WhyUnreadableModbus, OwnDecimals, u"CRC校验正确"};
constexpr ProtocolManner kRtu = {FirstRowModbus, WhyUnreadableModbus, DecimalsRowRtu, u"CRC校验正确"};

}  // namespace

const ProtocolManner& MannerOf(const MainForm& form) {
    switch (form.ProtocolCode / 10) {
        case 1: return kNative;
        case 2: return kAscii;
        default: return kRtu;
    }
}

}  // namespace commtest
