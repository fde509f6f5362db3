#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace commtest {

// CRC-16/MODBUS: polynomial 0xA001 (reflected), start 0xFFFF. The register is held as two bytes; the first
// one, the low-order byte of the 16 bits, leaves first on the line.
class Crc16 {
  public:
    Crc16() = default;

    // Another start than that of the polynomial's name.
    Crc16(std::uint8_t first, std::uint8_t second) : first_(first), second_(second) {}

    void Fold(std::uint8_t byte);

    std::uint8_t First() const { return first_; }
    std::uint8_t Second() const { return second_; }

  private:
    std::uint8_t first_ = 0xFF;
    std::uint8_t second_ = 0xFF;
};

// What a byte shifted through the register leaves in its first and its second byte. The heads are
// 00 C1 81 40 and 00 C0 C1 01.
using CrcTable = std::array<std::uint8_t, 256>;
extern const CrcTable kCrcFirstTable;
extern const CrcTable kCrcSecondTable;

inline void Crc16::Fold(std::uint8_t byte) {
    const std::size_t index = byte ^ first_;
    first_ = kCrcFirstTable[index] ^ second_;
    second_ = kCrcSecondTable[index];
}

}  // namespace commtest
