#include "numbers/crc16.h"

namespace commtest {

namespace {

constexpr std::uint16_t kPolynomial = 0xA001;

constexpr std::uint16_t ShiftedThrough(std::uint16_t value) {
    for (int bit = 0; bit < 8; ++bit) {
        const bool leaves = (value & 1) != 0;
        value = static_cast<std::uint16_t>(value >> 1);
        if (leaves) value ^= kPolynomial;
    }
    return value;
}

constexpr CrcTable MakeTable(int shift) {
    CrcTable table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = static_cast<std::uint8_t>(ShiftedThrough(static_cast<std::uint16_t>(i)) >> shift);
    }
    return table;
}

}  // namespace

constexpr CrcTable kCrcFirstTable = MakeTable(0);
constexpr CrcTable kCrcSecondTable = MakeTable(8);

}  // namespace commtest
