#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// Bytes on the line as numbers.
namespace simulator {

// 0 to 255.
int ByteAt(std::string_view bytes, std::size_t index);

// The low eight bits of each number.
std::string Bytes(std::initializer_list<int> numbers);

// The low 16 bits of a number, the low byte first.
std::string LowByteFirst(std::uint32_t number);

}  // namespace simulator
