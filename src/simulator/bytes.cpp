#include "simulator/bytes.h"

namespace simulator {

int ByteAt(std::string_view bytes, std::size_t index) { return static_cast<unsigned char>(bytes[index]); }

std::string Bytes(std::initializer_list<int> numbers) {
    std::string bytes;
    for (const int number : numbers) bytes += static_cast<char>(number);
    return bytes;
}

std::string LowByteFirst(std::uint32_t number) {
    return {static_cast<char>(number & 0xFF), static_cast<char>((number >> 8) & 0xFF)};
}

}  // namespace simulator
